#include "corekit/platform/FileDialogs.h"

#include "corekit/platform/qt/controls/BoundedPaste.h"
#include "corekit/platform/qt/dialogs/OwnerHeld.h"
#include "corekit/platform/qt/windows/ToolkitThread.h"
#include "corekit/platform/qt/windows/Window.h"
#include "corekit/platform/Toolkit.h"

#include <QFileDialog>

#include <algorithm>
#include <cstring>
#include <string>

using namespace corekit::detail;

// Laid out like a list of one item: a size, what it holds, and an empty item.
struct _ITEMIDLIST {
    WORD size;
    char path[MAX_PATH];
    WORD end;
};

namespace {

// File names are bytes and pass through as they are.
QString pathOf(const char* bytes)
{
    QString path = QFile::decodeName(bytes);
    return path.replace(u'\\', u'/');
}
std::string bytesOf(const QString& path) { return QFile::encodeName(path).toStdString(); }

QWidget* ownerOf(HWND window)
{
    const Window* const owner = Window::find(GetAncestor(window, GA_ROOT));
    return owner ? owner->widget() : nullptr;
}

// "Texts (*.txt)" and "*.txt" become what the toolkit reads.
QStringList filtersOf(const char* pairs)
{
    QStringList filters;
    for (; pairs && *pairs;) {
        QString name = fromNarrow(pairs);
        pairs += std::strlen(pairs) + 1;
        if (!*pairs) break;
        const QString patterns =
            fromNarrow(pairs).replace(u';', u' ').replace(QStringLiteral("*.*"), QStringLiteral("*"));
        pairs += std::strlen(pairs) + 1;
        if (const qsizetype open = name.indexOf(QStringLiteral(" (")); open > 0) name.truncate(open);
        filters << name + QStringLiteral(" (") + patterns + u')';
    }
    return filters;
}

void prepare(QFileDialog& dialog, const OPENFILENAMEA& choice)
{
    if (choice.lpstrTitle) dialog.setWindowTitle(fromNarrow(choice.lpstrTitle));
    if (choice.lpstrInitialDir) dialog.setDirectory(pathOf(choice.lpstrInitialDir));
    if (choice.lpstrFile && *choice.lpstrFile) dialog.selectFile(pathOf(choice.lpstrFile));
    if (choice.lpstrDefExt) dialog.setDefaultSuffix(fromNarrow(choice.lpstrDefExt));
    const QStringList filters = filtersOf(choice.lpstrFilter);
    if (filters.isEmpty()) return;
    dialog.setNameFilters(filters);
    const qsizetype index = std::clamp<qsizetype>(choice.nFilterIndex, 1, filters.size());
    dialog.selectNameFilter(filters[index - 1]);
}

// What goes into lpstrFile, its last zero left out. Where there may be several names, an empty one ends them.
std::string answerOf(const QStringList& files, bool isList)
{
    if (files.size() == 1) return bytesOf(files[0]) + std::string(isList ? 1 : 0, '\0');
    std::string answer = bytesOf(QFileInfo(files[0]).path());
    for (const QString& file : files) answer += '\0' + bytesOf(QFileInfo(file).fileName());
    return answer + '\0';
}

bool store(OPENFILENAMEA& choice, const QFileDialog& dialog)
{
    const QStringList files = dialog.selectedFiles();
    if (files.isEmpty() || !choice.lpstrFile) return false;
    const std::string answer = answerOf(files, choice.Flags & OFN_ALLOWMULTISELECT);
    if (answer.size() >= choice.nMaxFile) return false;
    std::memcpy(choice.lpstrFile, answer.c_str(), answer.size() + 1);
    const std::string_view path = choice.lpstrFile;
    const std::size_t name = files.size() > 1 ? path.size() + 1 : path.rfind('/') + 1;
    const std::size_t dot = path.rfind('.');
    choice.nFileOffset = static_cast<WORD>(name);
    choice.nFileExtension = dot != path.npos && dot > name ? static_cast<WORD>(dot + 1) : WORD{0};
    if (choice.lpstrFileTitle && choice.nMaxFileTitle) {
        const std::string title = bytesOf(QFileInfo(files[0]).fileName());
        const std::size_t length = std::min<std::size_t>(title.size(), choice.nMaxFileTitle - 1);
        std::memcpy(choice.lpstrFileTitle, title.data(), length);
        choice.lpstrFileTitle[length] = 0;
    }
    const qsizetype filter = dialog.nameFilters().indexOf(dialog.selectedNameFilter());
    if (filter >= 0) choice.nFilterIndex = static_cast<DWORD>(filter + 1);
    return true;
}

BOOL choose(OPENFILENAMEA* choice, QFileDialog::AcceptMode mode)
{
    if (!choice || !onToolkitThread() || !ToolkitHasDisplay()) return FALSE;
    QFileDialog dialog(ownerOf(choice->hwndOwner));
    dialog.setAcceptMode(mode);
    const bool isOpen = mode == QFileDialog::AcceptOpen;
    if (isOpen && choice->Flags & OFN_ALLOWMULTISELECT)
        dialog.setFileMode(QFileDialog::ExistingFiles);
    else if (isOpen && choice->Flags & OFN_FILEMUSTEXIST)
        dialog.setFileMode(QFileDialog::ExistingFile);
    else
        dialog.setFileMode(QFileDialog::AnyFile);
    if (!(choice->Flags & OFN_OVERWRITEPROMPT)) dialog.setOption(QFileDialog::DontConfirmOverwrite);
    prepare(dialog, *choice);
    boundPastes(dialog);
    const OwnerHeld held(choice->hwndOwner);
    return dialog.exec() == QDialog::Accepted && store(*choice, dialog);
}

bool isWithin(const QString& path, const QString& root)
{
    const QString folder = QDir::cleanPath(path), top = QDir::cleanPath(root);
    return top.isEmpty() || folder == top || folder.startsWith(top.endsWith(u'/') ? top : top + u'/');
}

} // namespace

BOOL GetOpenFileNameA(OPENFILENAMEA* choice) { return choose(choice, QFileDialog::AcceptOpen); }
BOOL GetSaveFileNameA(OPENFILENAMEA* choice) { return choose(choice, QFileDialog::AcceptSave); }

_ITEMIDLIST* ILCreateFromPathA(const char* path)
{
    const std::size_t length = path ? std::strlen(path) : 0;
    if (length == 0 || length >= MAX_PATH) return nullptr;
    auto* const list = new (std::nothrow) _ITEMIDLIST{sizeof(_ITEMIDLIST) - sizeof(WORD), {}, 0};
    if (list) std::memcpy(list->path, path, length);
    return list;
}

void ILFree(_ITEMIDLIST* list) { delete list; }

BOOL SHGetPathFromIDListA(const _ITEMIDLIST* list, char* path)
{
    if (!list || !path) return FALSE;
    std::memcpy(path, list->path, MAX_PATH);
    return TRUE;
}

_ITEMIDLIST* SHBrowseForFolderA(BROWSEINFOA* choice)
{
    if (!choice || !onToolkitThread() || !ToolkitHasDisplay()) return nullptr;
    const QString root = choice->pidlRoot ? pathOf(choice->pidlRoot->path) : QString();
    QFileDialog dialog(ownerOf(choice->hwndOwner));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setOption(QFileDialog::ReadOnly, choice->ulFlags & BIF_NONEWFOLDERBUTTON);
    if (choice->lpszTitle) dialog.setWindowTitle(fromNarrow(choice->lpszTitle));
    boundPastes(dialog);
    const OwnerHeld held(choice->hwndOwner);
    for (;;) {
        if (!root.isEmpty()) dialog.setDirectory(root);
        if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return nullptr;
        if (isWithin(dialog.selectedFiles()[0], root)) break;
    }
    const QString chosen = dialog.selectedFiles()[0];
    if (choice->pszDisplayName) {
        const std::string name = bytesOf(QFileInfo(chosen).fileName()).substr(0, MAX_PATH - 1);
        std::memcpy(choice->pszDisplayName, name.c_str(), name.size() + 1);
    }
    return ILCreateFromPathA(bytesOf(chosen).c_str());
}
