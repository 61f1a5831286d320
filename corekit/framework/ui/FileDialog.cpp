#include "corekit/framework/ui/FileDialog.h"

#include "corekit/framework/ui/DialogWindow.h"

#include <algorithm>
#include <cstring>
#include <string_view>

IMPLEMENT_DYNAMIC(CFileDialog, CDialog)

namespace {

constexpr std::size_t roomForFiles = 65536;

CString copyOf(std::string_view text) { return CString(text.data(), static_cast<int>(text.size())); }

std::string_view nameIn(std::string_view path)
{
    const std::size_t slash = path.rfind('/');
    return slash == path.npos ? path : path.substr(slash + 1);
}

} // namespace

CFileDialog::CFileDialog(BOOL open, const char* defaultExtension, const char* fileName, DWORD flags,
                         const char* filter, CWnd* parent)
    : m_isOpen(open), m_parent(parent), m_extension(defaultExtension ? defaultExtension : ""),
      m_files(roomForFiles)
{
    if (filter) {
        m_filter.assign(filter, filter + std::strlen(filter));
        std::ranges::replace(m_filter, '|', '\0');
        m_filter.insert(m_filter.end(), 2, '\0');
    }
    if (fileName) std::strncpy(m_files.data(), fileName, m_files.size() - 1);
    m_ofn.lStructSize = sizeof m_ofn;
    m_ofn.Flags = flags | OFN_EXPLORER;
    m_ofn.lpstrFile = m_files.data();
    m_ofn.nMaxFile = static_cast<DWORD>(m_files.size());
    m_ofn.lpstrFilter = m_filter.empty() ? nullptr : m_filter.data();
    m_ofn.lpstrDefExt = m_extension.IsEmpty() ? nullptr : static_cast<const char*>(m_extension);
}

CFileDialog::~CFileDialog() = default;

INT_PTR CFileDialog::DoModal()
{
    const CWnd* const owner = AfxGetSafeOwner(m_parent);
    m_ofn.hwndOwner = owner ? owner->GetSafeHwnd() : nullptr;
    return (m_isOpen ? GetOpenFileNameA(&m_ofn) : GetSaveFileNameA(&m_ofn)) ? IDOK : IDCANCEL;
}

CString CFileDialog::GetPathName() const
{
    POSITION position = GetStartPosition();
    return position ? GetNextPathName(position) : CString();
}

CString CFileDialog::GetFileName() const
{
    const CString path = GetPathName();
    return copyOf(nameIn(static_cast<const char*>(path)));
}

CString CFileDialog::GetFileExt() const
{
    const CString file = GetFileName();
    const std::string_view name = static_cast<const char*>(file);
    const std::size_t dot = name.rfind('.');
    return dot == name.npos ? CString() : copyOf(name.substr(dot + 1));
}

CString CFileDialog::GetFileTitle() const
{
    const CString file = GetFileName();
    const std::string_view name = static_cast<const char*>(file);
    return copyOf(name.substr(0, name.rfind('.')));
}

POSITION CFileDialog::GetStartPosition() const
{
    return *m_ofn.lpstrFile ? reinterpret_cast<POSITION>(m_ofn.lpstrFile) : nullptr;
}

// The folder stands first, and the names behind it; a single file is a path of its own.
CString CFileDialog::GetNextPathName(POSITION& position) const
{
    if (!position) return {};
    const char* const at = reinterpret_cast<const char*>(position);
    const char* const first = m_ofn.lpstrFile;
    const bool isList = m_ofn.Flags & OFN_ALLOWMULTISELECT && first[std::strlen(first) + 1];
    const char* const name = isList && at == first ? first + std::strlen(first) + 1 : at;
    const char* const next = name + std::strlen(name) + 1;
    position = isList && *next ? reinterpret_cast<POSITION>(const_cast<char*>(next)) : nullptr;
    if (!isList) return name;
    return CString(first) + "/" + name;
}
