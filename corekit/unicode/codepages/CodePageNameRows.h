// Which text of the string table names which code page.
#pragma once

#include "corekit/platform/Types.h"
#include "corekit/resources/Messages.h"

namespace corekit::detail {

struct CodePageNameRow {
    UINT codePage;
    UINT textId;
};

// By ascending number. The first is the page 037, whose number was once read as octal: nobody finds it
// under 37.
inline constexpr CodePageNameRow codePageNameRows[] = {
    {31, message::codePage037},      {437, message::codePage437},     {500, message::codePage500},
    {708, message::codePage708},     {709, message::codePage709},     {710, message::codePage710},
    {711, message::codePage711},     {720, message::codePage720},     {737, message::codePage737},
    {775, message::codePage775},     {819, message::codePage819},     {850, message::codePage850},
    {852, message::codePage852},     {855, message::codePage855},     {857, message::codePage857},
    {860, message::codePage860},     {861, message::codePage861},     {862, message::codePage862},
    {863, message::codePage863},     {864, message::codePage864},     {865, message::codePage865},
    {866, message::codePage866},     {869, message::codePage869},     {870, message::codePage870},
    {874, message::codePage874},     {875, message::codePage875},     {932, message::codePage932},
    {936, message::codePage936},     {949, message::codePage949},     {950, message::codePage950},
    {1026, message::codePage1026},   {1200, message::codePage1200},   {1250, message::codePage1250},
    {1251, message::codePage1251},   {1252, message::codePage1252},   {1253, message::codePage1253},
    {1254, message::codePage1254},   {1255, message::codePage1255},   {1256, message::codePage1256},
    {1257, message::codePage1257},   {1258, message::codePage1258},   {1361, message::codePage1361},
    {10000, message::codePage10000}, {10001, message::codePage10001}, {10002, message::codePage10002},
    {10003, message::codePage10003}, {10004, message::codePage10004}, {10005, message::codePage10005},
    {10006, message::codePage10006}, {10007, message::codePage10007}, {10008, message::codePage10008},
    {10010, message::codePage10010}, {10017, message::codePage10017}, {10029, message::codePage10029},
    {10079, message::codePage10079}, {10081, message::codePage10081}, {10082, message::codePage10082},
    {20105, message::codePage20105}, {20261, message::codePage20261}, {20269, message::codePage20269},
    {20273, message::codePage20273}, {20277, message::codePage20277}, {20278, message::codePage20278},
    {20280, message::codePage20280}, {20284, message::codePage20284}, {20285, message::codePage20285},
    {20290, message::codePage20290}, {20297, message::codePage20297}, {20420, message::codePage20420},
    {20423, message::codePage20423}, {20833, message::codePage20833}, {20838, message::codePage20838},
    {20866, message::codePage20866}, {20871, message::codePage20871}, {20880, message::codePage20880},
    {20905, message::codePage20905}, {21025, message::codePage21025}, {21027, message::codePage21027},
    {28592, message::codePage28592}, {28593, message::codePage28593}, {28594, message::codePage28594},
    {28595, message::codePage28595}, {28596, message::codePage28596}, {28597, message::codePage28597},
    {28598, message::codePage28598}, {28599, message::codePage28599},
};

} // namespace corekit::detail
