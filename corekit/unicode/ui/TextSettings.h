// The settings of text handling and the font of controls: what is in force, and its place in the registry.
#pragma once

#include "corekit/unicode/ui/FontDescriptor.h"
#include "corekit/unicode/ui/TextHandling.h"

namespace corekit::detail {

// User-interface thread.
class TextSettings {
public:
    const TextHandling& Handling() const { return m_handling; }
    // In this process alone.
    void Override(const TextHandling& handling) { m_handling = handling; }
    // Also in the registry, at once. Throws CChainedException message::createKeyFailed or
    // message::setValueFailed; the setting then holds for this process only.
    void Set(BOOL TextHandling::*flag, BOOL value);

    // Read where there is none yet.
    const CFontDescriptor& ControlsFont();
    void OverrideControlsFont(const CFontDescriptor& font) { m_controlsFont = font; }
    void SetControlsFont(const CFontDescriptor& font);

    // Takes all from the key. What is missing there, or of another type, gets its default.
    void Load(CRegistryKey& support);

private:
    void LoadControlsFont(CRegistryKey& support);

    TextHandling m_handling;
    CFontDescriptor m_controlsFont;
};

} // namespace corekit::detail
