// XServiceQuery: a lookup of names. The one kind of name here is that of a host (SVCID_HOSTNAME), which the
// system resolves to IPv4 addresses: its hosts file first, then the network.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/net/XSocketApi.h"

// Call XSocketApi::InitSockets first. One thread at a time; a lookup may block for as long as the system's
// resolver takes.
class COREKIT_API XServiceQuery : public CObject {
    DECLARE_DYNAMIC(XServiceQuery)
public:
    XServiceQuery() = default;
    ~XServiceQuery() override; // ends the lookup

    // Starts a lookup: 1, or 0 with the reason as last error. Of the protocols only the first is looked at,
    // and null means any. A lookup that was open is ended. `flags` are LUP_ and say what the records shall
    // have, such as LUP_RETURN_ADDR; what the query points to need not outlive the call.
    int StartQuery(_WSAQuerySetA* query, unsigned long flags);
    int StartQuery(const char* instanceName, const _GUID* classId, unsigned long nameSpace,
                   const char* context, const char* queryString, _AFPROTOCOLS* protocols,
                   unsigned long flags);
    // The next record, which lies in this object until the next call; 0 when there is none, or it does not
    // fit, with `record` left alone.
    int GetNextRecord(_WSAQuerySetA*& record);
    // Ends the lookup; nothing happens if none is open.
    void EndQuery();

private:
    static constexpr std::size_t room = 2048; // bytes for what a record points to

    HANDLE m_hLookup = INVALID_HANDLE_VALUE;
    alignas(WSAQUERYSETA) char m_result[sizeof(WSAQUERYSETA) + room];
};
