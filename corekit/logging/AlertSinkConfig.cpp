#include "corekit/logging/AlertSinkConfig.h"

IMPLEMENT_DYNAMIC(CAlertSinkConfig, CObject)

CAlertSinkConfig::CAlertSinkConfig() { SetDefault(); }
CAlertSinkConfig::CAlertSinkConfig(const CAlertSinkConfig& source) : CObject() { CopyHelper(source); }
CAlertSinkConfig& CAlertSinkConfig::operator=(const CAlertSinkConfig& source)
{
    CopyHelper(source);
    return *this;
}
CAlertSinkConfig::~CAlertSinkConfig() = default;

void CAlertSinkConfig::LoadConfig(HKEY) { SetDefault(); }
