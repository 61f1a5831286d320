// The pages of the prompter's settings, and its window of keyboards, as tables.
#pragma once

#include "corekit/framework/MessageBox.h"
#include "corekit/resources/dialogs/Items.h"

namespace prompter {

enum SettingsControl : int {
    bySecondsRadio = 3001,
    byCharactersRadio,
    linesField,
    secondsField,
    charactersField,
    countdownField,
    statusCheck,
    clockChoice,
    portChoice,
    sizeField,
    faceChoice,
    gapField,
    marginField,
    markField,
    textColourChoice,
    backColourChoice,
    markColourChoice,
    bracketsCheck,
    displayList,
    showHereCheck,
    mirrorSidesCheck,
    mirrorTopCheck,
    turnChoice,
    keyboardList,
    keyboardPicture,
    newsField,
    browseNews,
    codePageChoice,
    remoteCheck,
    remotePortField,
    remoteAddressField,
    remoteWordField,
};

namespace dialogs {
using namespace corekit::detail::dialogs;
// clang-format off

inline constexpr UINT readingId = 3100, lookId = 3101, displaysId = 3102, keyboardsId = 3103, filesId = 3104;

inline constexpr DialogItem readingItems[] = {
    box("Read rate", {7, 7, 246, 76}),
    radio(bySecondsRadio, "S&econds for a number of lines", {17, 20, 220, 11}, group),
    radio(byCharactersRadio, "C&haracters for a line, 15 a second", {17, 52, 220, 11}),
    label("&Lines:", {29, 36, 60, 10}, noId, SS_LEFT | WS_GROUP),
    edit(linesField, {91, 33, 40, 14}, ES_NUMBER),
    label("&Seconds:", {141, 36, 50, 10}),
    edit(secondsField, {193, 33, 40, 14}, ES_NUMBER),
    label("&Characters:", {29, 67, 60, 10}),
    edit(charactersField, {91, 64, 40, 14}, ES_NUMBER),
    label("Count&down, seconds:", {7, 94, 82, 10}),
    edit(countdownField, {91, 91, 40, 14}, ES_NUMBER),
    check(statusCheck, "Show cloc&k, speed and times at the bottom", {7, 112, 240, 11}),
    label("&Frames a second:", {7, 132, 82, 10}),
    choice(clockChoice, {91, 129, 140, 80}),
    label("Hand controlle&r at:", {7, 152, 82, 10}),
    choice(portChoice, {91, 149, 140, 120}),
};
inline constexpr DialogTemplate reading = {readingId, "Reading", 260, 190, page, readingItems};

inline constexpr DialogItem lookItems[] = {
    label("&Face:", {7, 10, 82, 10}),
    choice(faceChoice, {91, 7, 150, 160}, CBS_DROPDOWN),
    label("&Size:", {7, 30, 82, 10}),
    edit(sizeField, {91, 27, 40, 14}, ES_NUMBER),
    label("pixels", {135, 30, 60, 10}),
    label("&Line gap:", {7, 48, 82, 10}),
    edit(gapField, {91, 45, 40, 14}, ES_NUMBER),
    label("% of the size", {135, 48, 80, 10}),
    label("&Margins:", {7, 66, 82, 10}),
    edit(marginField, {91, 63, 40, 14}, ES_NUMBER),
    label("pixels", {135, 66, 60, 10}),
    label("&Reading mark:", {7, 84, 82, 10}),
    edit(markField, {91, 81, 40, 14}, ES_NUMBER),
    label("% from the top", {135, 84, 80, 10}),
    label("&Text:", {7, 104, 82, 10}),
    choice(textColourChoice, {91, 101, 100, 140}, CBS_DROPDOWN),
    label("&Ground:", {7, 122, 82, 10}),
    choice(backColourChoice, {91, 119, 100, 140}, CBS_DROPDOWN),
    label("M&ark:", {7, 140, 82, 10}),
    choice(markColourChoice, {91, 137, 100, 140}, CBS_DROPDOWN),
    check(bracketsCheck, "Turn &brackets in lines from right to left", {7, 160, 240, 11}),
};
inline constexpr DialogTemplate look = {lookId, "Look", 260, 190, page, lookItems};

inline constexpr DialogItem displaysItems[] = {
    label("&Displays, those that are away too:", {7, 7, 240, 10}),
    list(displayList, {7, 19, 246, 70}),
    check(showHereCheck, "&Show the prompt here", {7, 98, 240, 11}),
    check(mirrorSidesCheck, "Mirror &left and right", {7, 114, 240, 11}),
    check(mirrorTopCheck, "Mirror &top and bottom", {7, 130, 240, 11}),
    label("T&urn:", {7, 149, 40, 10}),
    choice(turnChoice, {49, 146, 110, 80}),
    label("Without one that is chosen and there, the prompt takes a display on which the desk does not stand.",
          {7, 166, 246, 20}),
};
inline constexpr DialogTemplate displays = {displaysId, "Displays", 260, 190, page, displaysItems};

inline constexpr DialogItem filesItems[] = {
    label("&News folder:", {7, 10, 70, 10}),
    edit(newsField, {79, 7, 118, 14}),
    button(browseNews, "&Browse...", {201, 7, 52, 14}),
    label("Files in it that appear or change and end in .txt become stories. Empty: none is watched.",
          {79, 24, 174, 20}),
    label("&Code page:", {7, 53, 70, 10}),
    choice(codePageChoice, {79, 50, 174, 160}),
    label("Of scripts and news without a byte order mark, from the next that is opened.", {79, 67, 174, 20}),
    box("Remote control", {7, 90, 246, 94}),
    check(remoteCheck, "&Take lines over TCP", {17, 103, 220, 11}),
    label("&Port:", {29, 121, 48, 10}),
    edit(remotePortField, {79, 118, 40, 14}, ES_NUMBER),
    label("&Address:", {29, 139, 48, 10}),
    edit(remoteAddressField, {79, 136, 100, 14}),
    label("&Word:", {29, 157, 48, 10}),
    edit(remoteWordField, {79, 154, 100, 14}),
    label("Other machines reach no address that begins with 127.", {29, 171, 220, 10}),
};
inline constexpr DialogTemplate files = {filesId, "Files and remote", 260, 190, page, filesItems};

inline constexpr DialogItem keyboardsItems[] = {
    label("&Keyboards:", {7, 7, 100, 10}),
    list(keyboardList, {7, 19, 110, 168}),
    item(WC_STATICA, keyboardPicture, "", {124, 19, 366, 168}, SS_BITMAP),
    defaultButton(IDOK, "&Type with it", {384, 194, 50, 14}),
    button(IDCANCEL, "Cancel", {440, 194, 50, 14}),
};
inline constexpr DialogTemplate keyboards = {keyboardsId, "Keyboards", 497, 215, modal, keyboardsItems};

// clang-format on
inline constexpr DialogTemplate all[] = {reading, look, displays, files, keyboards};
} // namespace dialogs
} // namespace prompter
