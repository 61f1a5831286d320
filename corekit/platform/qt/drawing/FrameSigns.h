// The outlines of the signs on frame controls, in a square of 16 by 16.
#pragma once

#include <span>

namespace corekit::detail {

struct FramePoint {
    double x, y;
};

struct FrameSign {
    std::span<const FramePoint> points; // of a round one, two corners of the rectangle about it
    bool isRound = false;
};

inline constexpr double frameSignSize = 16;

namespace outlines {

inline constexpr FramePoint up[] = {{8, 5}, {12, 10}, {4, 10}};
inline constexpr FramePoint down[] = {{4, 6}, {12, 6}, {8, 11}};
inline constexpr FramePoint left[] = {{5, 8}, {10, 4}, {10, 12}};
inline constexpr FramePoint right[] = {{6, 4}, {11, 8}, {6, 12}};
inline constexpr FramePoint check[] = {{3, 8}, {5, 6}, {7, 9}, {12, 3}, {14, 5}, {7, 13}};
inline constexpr FramePoint bullet[] = {{5, 5}, {11, 11}};
inline constexpr FramePoint round[] = {{1, 1}, {15, 15}};
inline constexpr FramePoint roundInside[] = {{2, 2}, {14, 14}};
inline constexpr FramePoint grip[] = {{15, 4}, {15, 15}, {4, 15}};
inline constexpr FramePoint close[] = {{3, 4.5},   {4.5, 3},   {8, 6.5}, {11.5, 3}, {13, 4.5}, {9.5, 8},
                                       {13, 11.5}, {11.5, 13}, {8, 9.5}, {4.5, 13}, {3, 11.5}, {6.5, 8}};
inline constexpr FramePoint minimise[] = {{4, 11}, {11, 11}, {11, 13}, {4, 13}};
// The hole runs the other way round, so that it stays open.
inline constexpr FramePoint maximise[] = {{3, 3},  {13, 3},  {13, 13}, {3, 13}, {3, 3}, {4, 5},
                                          {4, 12}, {12, 12}, {12, 5},  {4, 5},  {3, 3}};
inline constexpr FramePoint restore[] = {{3, 6},   {6, 6},   {6, 3},  {13, 3}, {13, 10},
                                         {10, 10}, {10, 13}, {3, 13}, {3, 6},  {4, 8},
                                         {4, 12},  {9, 12},  {9, 8},  {4, 8},  {3, 6}};
inline constexpr FramePoint help[] = {{5, 6},  {5, 5},    {7, 3},    {10, 3},   {12, 5},   {12, 7},   {9, 9},
                                      {9, 10}, {7, 10},   {7, 8.5},  {10, 6.5}, {10, 5.5}, {9, 5},    {8, 5},
                                      {7, 6},  {7, 11.5}, {9, 11.5}, {9, 13},   {7, 13},   {7, 11.5}, {7, 6}};

} // namespace outlines

inline constexpr FrameSign checkSign{outlines::check};
inline constexpr FrameSign bulletSign{outlines::bullet, true};
inline constexpr FrameSign roundSign{outlines::round, true};
inline constexpr FrameSign roundInsideSign{outlines::roundInside, true};
inline constexpr FrameSign gripSign{outlines::grip};
// By DFCS_SCROLLUP and the like, by DFCS_CAPTIONCLOSE and the like.
inline constexpr FrameSign arrowSigns[] = {
    {outlines::up}, {outlines::down}, {outlines::left}, {outlines::right}};
inline constexpr FrameSign captionSigns[] = {
    {outlines::close}, {outlines::minimise}, {outlines::maximise}, {outlines::restore}, {outlines::help}};

} // namespace corekit::detail
