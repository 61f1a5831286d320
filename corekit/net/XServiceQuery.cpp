#include "corekit/net/XServiceQuery.h"

#include "corekit/platform/Errors.h"

#include <utility>

IMPLEMENT_DYNAMIC(XServiceQuery, CObject)

XServiceQuery::~XServiceQuery() { EndQuery(); }

int XServiceQuery::StartQuery(_WSAQuerySetA* query, unsigned long flags)
{
    EndQuery();
    return XSocketApi::WSALookupServiceBeginA &&
           XSocketApi::WSALookupServiceBeginA(query, static_cast<DWORD>(flags), &m_hLookup) == 0;
}

int XServiceQuery::StartQuery(const char* instanceName, const _GUID* classId, unsigned long nameSpace,
                              const char* context, const char* queryString, _AFPROTOCOLS* protocols,
                              unsigned long flags)
{
    WSAQUERYSETA query{};
    query.dwSize = sizeof query;
    query.lpszServiceInstanceName = const_cast<char*>(instanceName);
    query.lpServiceClassId = const_cast<GUID*>(classId);
    query.dwNameSpace = static_cast<DWORD>(nameSpace);
    query.lpszContext = const_cast<char*>(context);
    query.lpszQueryString = const_cast<char*>(queryString);
    query.dwNumberOfProtocols = protocols ? 1 : 0;
    query.lpafpProtocols = protocols;
    return StartQuery(&query, flags);
}

int XServiceQuery::GetNextRecord(_WSAQuerySetA*& record)
{
    DWORD size = sizeof m_result;
    auto* const result = reinterpret_cast<WSAQUERYSETA*>(m_result);
    if (!XSocketApi::WSALookupServiceNextA ||
        XSocketApi::WSALookupServiceNextA(m_hLookup, 0, &size, result) != 0)
        return 0;
    record = result;
    return 1;
}

void XServiceQuery::EndQuery()
{
    const HANDLE lookup = std::exchange(m_hLookup, INVALID_HANDLE_VALUE);
    if (lookup != INVALID_HANDLE_VALUE) XSocketApi::WSALookupServiceEnd(lookup);
}
