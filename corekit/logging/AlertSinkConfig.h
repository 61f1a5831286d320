// The settings of an alert sink: a place for them, since there are none yet. Programs load one before they
// initialise the sink, so that a setting that comes will be read everywhere. A plain value.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/Registry.h"

class COREKIT_API CAlertSinkConfig : public CObject {
    DECLARE_DYNAMIC(CAlertSinkConfig)
public:
    // With the defaults; a copy has the source's settings.
    CAlertSinkConfig();
    CAlertSinkConfig(const CAlertSinkConfig& source);

    CAlertSinkConfig& operator=(const CAlertSinkConfig& source); // takes over all settings
    ~CAlertSinkConfig() override;

    // Reads the settings from an open key of the registry. What the key does not hold keeps its default.
    // The key stays the caller's and may be null; nothing throws.
    void LoadConfig(HKEY key);

private:
    void SetDefault() {}                        // where the defaults go
    void CopyHelper(const CAlertSinkConfig&) {} // all settings of another one
};
