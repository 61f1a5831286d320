// A display back end for tests: it notes every call and answers as it was told.
//
// Put it in force with SetDisplayBackEnd. Calls succeed unless a result is scripted for them; each scripted
// result serves one call, in order. Names are those of the operations: "Flip", "Restore", "CreateSurface" ...
//
//     ScriptedDisplays displays;
//     DisplayBackEnd* const former = SetDisplayBackEnd(&displays);
//     displays.Script("Flip", {DDERR_SURFACELOST}); // the next one fails
//     ...
//     EXPECT_EQ(displays.Calls().back(), "Restore");
//     SetDisplayBackEnd(former);
#pragma once

#include "corekit/platform/Displays.h"

#include <deque>
#include <map>
#include <string>
#include <vector>

class COREKIT_API ScriptedDisplays : public DisplayBackEnd {
public:
    // What Enumerate tells; the list is empty at first.
    struct Display {
        bool hasDriver; // false: a null identifier
        GUID driver;
        std::string description, name; // texts that the callback gets
    };

    ScriptedDisplays();
    ~ScriptedDisplays() override;

    // The next calls of that name answer these.
    void Script(const std::string& call, std::initializer_list<HRESULT> results);
    // The calls so far, with their numbers behind the name: "SetDisplayMode 640 480 32 0 0".
    const std::vector<std::string>& Calls() const { return m_calls; }
    // Scripts stay.
    void ForgetCalls() { m_calls.clear(); }
    std::vector<Display>& Displays() { return m_displays; }
    void SetThere(bool isThere) { m_isThere = isThere; } // what IsThere answers; true at first
    int ObjectCount() const { return m_objects; }        // that have not been released
    const DDSURFACEDESC& LastDescription() const
    {
        return m_description;
    } // that a surface was asked for with
    const DDBLTFX& LastEffects() const { return m_effects; }

    bool IsThere() const override { return m_isThere; }
    // Counts among the objects until its last Release.
    HRESULT Create(const GUID& interfaceId, void** out) override;
    // Each display in turn, until the callback answers 0.
    HRESULT Enumerate(LPDDENUMCALLBACKEXA callback, void* context, DWORD flags) override;

private:
    template <typename... Interfaces>
    class Object;
    class DirectDraw;
    class Surface;
    class Palette;

    // Notes a call and takes its next result.
    HRESULT Note(const std::string& call, std::initializer_list<long long> numbers = {});

    std::map<std::string, std::deque<HRESULT>> m_scripts; // results to come, by call
    std::vector<std::string> m_calls;
    std::vector<Display> m_displays;
    DDSURFACEDESC m_description{};
    DDBLTFX m_effects{};
    bool m_isThere = true;
    int m_objects = 0;
};
