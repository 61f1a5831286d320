#include "view/SettingsFile.h"

#include "model/StoreFile.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace prompter {
namespace {

constexpr SIZE leastDesk{320, 240}; // smaller ones are the defaults again
constexpr int mostOutputs = 16, mostFaces = 16;

// One number of the settings, where it stands and what it may be.
struct NumberRow {
    const char* name;
    int least, most;
    int& (*of)(Settings&);
};

constexpr NumberRow numberRows[] = {
    {"Size", 8, 400, [](Settings& s) -> int& { return s.session.style.size; }},
    {"Line Gap", 0, 300, [](Settings& s) -> int& { return s.session.style.lineGap; }},
    {"Margin", 0, 2000, [](Settings& s) -> int& { return s.session.style.margin; }},
    {"Reading Mark", 0, 100, [](Settings& s) -> int& { return s.session.style.readingMark; }},
    {"Lines", 1, 1000, [](Settings& s) -> int& { return s.session.rate.lines; }},
    {"Seconds", 1, 3600, [](Settings& s) -> int& { return s.session.rate.seconds; }},
    {"Characters Per Line", 1, 1000, [](Settings& s) -> int& { return s.session.rate.charactersPerLine; }},
    {"Countdown", 0, 99, [](Settings& s) -> int& { return s.session.countdownSeconds; }},
    {"Controller Port", 0, 256, [](Settings& s) -> int& { return s.controllerPort; }},
    {"Remote Port", 0, 65535, [](Settings& s) -> int& { return s.remote.port; }},
    {"Code Page", 0, 65535, [](Settings& s) -> int& { return s.codePage; }},
    {"Speed", -Scroller::speedSteps, Scroller::speedSteps, [](Settings& s) -> int& { return s.speed; }},
};

struct ColourRow {
    const char* name;
    COLORREF& (*of)(Settings&);
};
constexpr ColourRow colourRows[] = {
    {"Text Colour", [](Settings& s) -> COLORREF& { return s.session.style.text; }},
    {"Back Colour", [](Settings& s) -> COLORREF& { return s.session.style.back; }},
    {"Mark Colour", [](Settings& s) -> COLORREF& { return s.session.style.mark; }},
};

struct FlagRow {
    const char* name;
    bool& (*of)(Settings&);
};
constexpr FlagRow flagRows[] = {
    {"Use Seconds Per Line", [](Settings& s) -> bool& { return s.session.rate.bySeconds; }},
    {"Status", [](Settings& s) -> bool& { return s.session.showsStatus; }},
    {"Remote", [](Settings& s) -> bool& { return s.hasRemote; }},
};

struct TextRow {
    const char* name;
    std::string& (*of)(Settings&);
};
constexpr TextRow textRows[] = {
    {"News Folder", [](Settings& s) -> std::string& { return s.newsFolder; }},
    {"Remote Address", [](Settings& s) -> std::string& { return s.remote.address; }},
    {"Remote Word", [](Settings& s) -> std::string& { return s.remote.word; }},
};

std::string Numbered(const char* name, int number)
{
    return std::string(name) + " " + std::to_string(number);
}

std::string TextOf(CPropertyStore& store, const std::string& name)
{
    CString text;
    store.GetValue(name.c_str(), text);
    return static_cast<const char*>(text);
}

int CountOf(CPropertyStore& store, const char* name, int most)
{
    int count = 0;
    store.GetValue(name, count);
    return std::clamp(count, 0, most);
}

void TakeNumbers(CPropertyStore& store, Settings& settings)
{
    for (const NumberRow& row : numberRows) {
        int value = row.of(settings);
        if (store.GetValue(row.name, value)) row.of(settings) = std::clamp(value, row.least, row.most);
    }
    for (const ColourRow& row : colourRows) {
        UINT colour = row.of(settings);
        if (store.GetValue(row.name, colour)) row.of(settings) = colour & 0xFFFFFF;
    }
    for (const FlagRow& row : flagRows) {
        int flag = row.of(settings);
        if (store.GetValue(row.name, flag)) row.of(settings) = flag != 0;
    }
    int mirrored = settings.session.style.brackets == Brackets::mirrored;
    store.GetValue("Mirror Brackets", mirrored);
    int clock = 0;
    store.GetValue("Clock", clock);
    settings.session.clock = static_cast<Clock>(std::clamp(clock, 0, static_cast<int>(Clock::ntsc)));
    settings.session.style.brackets = mirrored ? Brackets::mirrored : Brackets::asTyped;
}

FrameForm FormOf(int bits) { return {(bits & 1) != 0, (bits & 2) != 0, static_cast<Turn>(bits >> 2 & 3)}; }
int BitsOf(const FrameForm& form)
{
    return (form.mirrorLeftRight ? 1 : 0) | (form.mirrorTopBottom ? 2 : 0) | static_cast<int>(form.turn) << 2;
}

void TakeLists(CPropertyStore& store, Settings& settings)
{
    for (int i = 0, count = CountOf(store, "Faces", mostFaces); i < count; ++i)
        settings.session.style.faces.push_back(TextOf(store, Numbered("Face", i)));
    for (int i = 0, count = CountOf(store, "Outputs", mostOutputs); i < count; ++i) {
        int form = 0;
        store.GetValue(Numbered("Output Form", i).c_str(), form);
        int isOn = 1;
        store.GetValue(Numbered("Output On", i).c_str(), isOn);
        settings.outputs.push_back({TextOf(store, Numbered("Output", i)), FormOf(form), isOn != 0});
    }
    RECT desk = settings.desk;
    const auto isLong = [](LONG from, LONG to, LONG least) { return std::int64_t{to} - from >= least; };
    if (store.GetValue("Desk", desk) && isLong(desk.left, desk.right, leastDesk.cx) &&
        isLong(desk.top, desk.bottom, leastDesk.cy))
        settings.desk = desk;
    for (const TextRow& row : textRows)
        if (CString text; store.GetValue(row.name, text)) row.of(settings) = static_cast<const char*>(text);
    settings.keys = store.GetPropertyStore("Keys");
}

CPropertyStore StoreOf(Settings settings)
{
    CPropertyStore store;
    for (const NumberRow& row : numberRows) store.SetValue(row.name, row.of(settings));
    for (const ColourRow& row : colourRows) store.SetValue(row.name, row.of(settings));
    for (const FlagRow& row : flagRows) store.SetValue(row.name, row.of(settings) ? 1 : 0);
    store.SetValue("Mirror Brackets", settings.session.style.brackets == Brackets::mirrored ? 1 : 0);
    store.SetValue("Clock", static_cast<int>(settings.session.clock));
    const auto& faces = settings.session.style.faces;
    store.SetValue("Faces", static_cast<int>(faces.size()));
    for (std::size_t i = 0; i < faces.size(); ++i)
        store.SetValue(Numbered("Face", static_cast<int>(i)).c_str(), faces[i].c_str());
    store.SetValue("Outputs", static_cast<int>(settings.outputs.size()));
    for (std::size_t i = 0; i < settings.outputs.size(); ++i) {
        const int number = static_cast<int>(i);
        store.SetValue(Numbered("Output", number).c_str(), settings.outputs[i].display.c_str());
        store.SetValue(Numbered("Output Form", number).c_str(), BitsOf(settings.outputs[i].form));
        store.SetValue(Numbered("Output On", number).c_str(), settings.outputs[i].isOn ? 1 : 0);
    }
    store.SetValue("Desk", settings.desk);
    for (const TextRow& row : textRows) store.SetValue(row.name, row.of(settings).c_str());
    store.SetPropertyStore("Keys", settings.keys);
    return store;
}

} // namespace

std::string UsualSettingsPath()
{
    const char* config = std::getenv("XDG_CONFIG_HOME");
    if (config && *config == '/') return std::string(config) + "/corekit/prompter.settings";
    const char* home = std::getenv("HOME");
    return std::string(home ? home : ".") + "/.config/corekit/prompter.settings";
}

Settings LoadSettings(const std::string& path)
{
    Settings settings;
    if (std::optional<CPropertyStore> store = ReadStoreFile(path)) {
        TakeNumbers(*store, settings);
        TakeLists(*store, settings);
    }
    return settings;
}

bool SaveSettings(const std::string& path, const Settings& settings, const Settings& before)
{
    return WriteStoreChanges(path, StoreOf(settings), StoreOf(before));
}

} // namespace prompter
