// The settings of an alert sink. There are none yet.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/Registry.h"

class COREKIT_API CAlertSinkConfig : public CObject {
    DECLARE_DYNAMIC(CAlertSinkConfig)
public:
    CAlertSinkConfig();
    CAlertSinkConfig(const CAlertSinkConfig& source);
    CAlertSinkConfig& operator=(const CAlertSinkConfig& source);
    ~CAlertSinkConfig() override;

    // What the key does not hold keeps its default. The key stays the caller's.
    void LoadConfig(HKEY key);

private:
    void SetDefault() {}
    void CopyHelper(const CAlertSinkConfig&) {}
};
