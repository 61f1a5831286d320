#include "corekit/framework/DialogBytes.h"

#include "corekit/platform/CodePages.h"

#include <cstring>
#include <iterator>

namespace corekit::detail {

namespace {

constexpr WORD extendedMark = 0xFFFF; // follows a version of 1; also says that a number follows, not a text
constexpr const char* controlClasses[] = {"BUTTON", "EDIT", "STATIC", "LISTBOX", "SCROLLBAR", "COMBOBOX"};
constexpr WORD firstControlClass = 0x80;

} // namespace

// Reads in order; a read beyond the end makes the whole a failure, and gives zeros until somebody looks.
class DialogBytesReader {
public:
    DialogBytesReader(std::span<const std::byte> bytes, DialogBytes& result)
        : m_bytes(bytes), m_result(result)
    {
    }

    bool run(UINT id)
    {
        DialogTemplate& dialog = m_result.m_dialog;
        dialog.id = id;
        const DWORD first = take<DWORD>();
        const bool isExtended = LOWORD(first) == 1 && HIWORD(first) == extendedMark;
        if (isExtended) take<DWORD>(); // help
        DWORD style = first;
        if (isExtended) {
            dialog.exStyle = take<DWORD>();
            style = take<DWORD>();
        } else {
            dialog.exStyle = take<DWORD>();
        }
        dialog.style = style;
        const WORD count = take<WORD>();
        dialog.x = take<SHORT>();
        dialog.y = take<SHORT>();
        dialog.width = take<SHORT>();
        dialog.height = take<SHORT>();
        text(); // menu
        text(); // class: always that of dialogs here
        dialog.caption = text();
        if (style & DS_SETFONT) passFont(isExtended);
        for (WORD k = 0; k < count && !m_failed; ++k) item(isExtended);
        dialog.items = m_result.m_items;
        return !m_failed;
    }

private:
    template <class Number>
    Number take()
    {
        Number value{};
        if (m_bytes.size() - m_at < sizeof value) {
            m_failed = true;
            return value;
        }
        std::memcpy(&value, m_bytes.data() + m_at, sizeof value);
        m_at += sizeof value;
        return value;
    }

    void align() { m_at = std::min((m_at + 3) & ~std::size_t{3}, m_bytes.size()); }

    void passFont(bool isExtended)
    {
        take<WORD>(); // size
        if (isExtended) take<DWORD>();
        text();
    }

    const char* keep(std::string text) { return m_result.m_texts.emplace_back(std::move(text)).c_str(); }

    // A text up to its zero, or a number behind the mark, which is written as "#101".
    const char* text()
    {
        const std::size_t begin = m_at;
        const WORD first = take<WORD>();
        if (first == 0) return "";
        if (first == extendedMark) return keep("#" + std::to_string(take<WORD>()));
        while (!m_failed && take<WORD>() != 0) {
        }
        if (m_failed) return "";
        std::u16string wide((m_at - begin) / 2 - 1, u'\0');
        std::memcpy(wide.data(), m_bytes.data() + begin, wide.size() * 2);
        const int units = static_cast<int>(wide.size());
        std::string narrow(wide.size() * 3, '\0');
        narrow.resize(
            static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, narrow.data(),
                                                         static_cast<int>(narrow.size()), nullptr, nullptr)));
        return keep(std::move(narrow));
    }

    const char* windowClass()
    {
        const std::size_t begin = m_at;
        if (take<WORD>() != extendedMark) {
            m_at = begin;
            return text();
        }
        const WORD number = take<WORD>();
        if (number >= firstControlClass && number < firstControlClass + std::size(controlClasses))
            return controlClasses[number - firstControlClass];
        m_failed = true;
        return "";
    }

    void item(bool isExtended)
    {
        align();
        DialogItem one{};
        if (isExtended) {
            take<DWORD>(); // help
            one.exStyle = take<DWORD>();
            one.style = take<DWORD>();
        } else {
            one.style = take<DWORD>();
            one.exStyle = take<DWORD>();
        }
        one.x = take<SHORT>();
        one.y = take<SHORT>();
        one.width = take<SHORT>();
        one.height = take<SHORT>();
        one.id = isExtended ? take<int>() : static_cast<SHORT>(take<WORD>());
        one.windowClass = windowClass();
        one.text = text();
        const WORD extra = take<WORD>();
        if (!*one.windowClass || extra > m_bytes.size() - m_at) m_failed = true;
        if (m_failed) return;
        m_at += extra;
        m_result.m_items.push_back(one);
    }

    std::span<const std::byte> m_bytes;
    std::size_t m_at = 0;
    bool m_failed = false;
    DialogBytes& m_result;
};

std::shared_ptr<const DialogBytes> DialogBytes::read(std::span<const std::byte> bytes, UINT id)
{
    const auto result = std::make_shared<DialogBytes>();
    return DialogBytesReader(bytes, *result).run(id) ? result : nullptr;
}

} // namespace corekit::detail
