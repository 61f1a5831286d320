// Code pages that ICU converts: small ones become tables, the others go through a pool of converters.
#include "corekit/platform/posix/text/CodePage.h"
#include "corekit/platform/posix/text/TablePage.h"

#include <array>
#include <mutex>
#include <string>
#include <unicode/ucnv.h>
#include <utility>
#include <vector>

namespace corekit::detail {
namespace {

struct CloseConverter {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

// A converter that stops at whatever it cannot convert.
Converter openConverter(const char* name)
{
    UErrorCode error = U_ZERO_ERROR;
    Converter converter(ucnv_open(name, &error));
    if (U_FAILURE(error) || !converter) return nullptr;
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    return U_SUCCESS(error) ? std::move(converter) : nullptr;
}

class IcuSource final : public PageSource {
public:
    explicit IcuSource(UConverter& converter) : m_converter(converter) {}

    Answer decode(std::string_view bytes, WCHAR& unit) override
    {
        std::array<UChar, 4> result;
        UErrorCode error = U_ZERO_ERROR;
        ucnv_resetToUnicode(&m_converter);
        const int length = ucnv_toUChars(&m_converter, result.data(), result.size(), bytes.data(),
                                         static_cast<int32_t>(bytes.size()), &error);
        if (error == U_TRUNCATED_CHAR_FOUND) return bytes.size() == 1 ? Answer::leadByte : Answer::nothing;
        if (U_FAILURE(error) || length != 1) return Answer::nothing;
        unit = result[0];
        return Answer::unit;
    }

    std::string encode(WCHAR unit) override
    {
        std::array<char, 8> result;
        UErrorCode error = U_ZERO_ERROR;
        const UChar text = unit;
        ucnv_resetFromUnicode(&m_converter);
        const int length = ucnv_fromUChars(&m_converter, result.data(), result.size(), &text, 1, &error);
        return U_SUCCESS(error) && length > 0 ? std::string(result.data(), static_cast<std::size_t>(length))
                                              : std::string();
    }

private:
    UConverter& m_converter;
};

// Pages with longer characters, or with states.
class ConverterPage final : public CodePage {
public:
    ConverterPage(std::string name, Converter first)
        : m_name(std::move(name)), m_longest(static_cast<std::size_t>(ucnv_getMaxCharSize(first.get())))
    {
        m_pool.push_back(std::move(first));
    }

    Converted widen(std::string_view text, WCHAR* result, std::size_t size) const override
    {
        Sink<WCHAR> sink(result, size);
        const Borrowed converter(*this);
        if (!converter.get()) return sink.converted();
        ucnv_resetToUnicode(converter.get());
        const char* from = text.data();
        const char* const end = from + text.size();
        std::array<UChar, 512> part;
        for (bool more = true; more;) {
            UChar* to = part.data();
            UErrorCode error = U_ZERO_ERROR;
            ucnv_toUnicode(converter.get(), &to, part.data() + part.size(), &from, end, nullptr, true,
                           &error);
            putPart(part.data(), to, sink);
            more = U_FAILURE(error);
            if (!more || error == U_BUFFER_OVERFLOW_ERROR) continue;
            sink.markUnknown();
            sink.put(WCHAR{0xFFFD});
        }
        return sink.converted();
    }

    Converted narrow(std::u16string_view text, char* result, std::size_t size,
                     std::string_view replacement) const override
    {
        Sink<char> sink(result, size);
        const Borrowed converter(*this);
        if (!converter.get()) return sink.converted();
        ucnv_resetFromUnicode(converter.get());
        const UChar* from = text.data();
        const UChar* const end = from + text.size();
        while (!convertKnown(*converter.get(), from, end, true, sink)) {
            sink.markUnknown();
            if (replacement.empty()) { // through the converter, which may have to change its state for it
                const UChar questionMark[] = {u'?'};
                const UChar* mark = questionMark;
                convertKnown(*converter.get(), mark, mark + 1, false, sink);
            } else {
                sink.put(replacement.data(), replacement.size());
            }
        }
        return sink.converted();
    }

    std::size_t longest() const override { return m_longest; }

private:
    // A converter of the pool for one conversion; another one is opened when all are in use.
    class Borrowed {
    public:
        explicit Borrowed(const ConverterPage& page) : m_page(page)
        {
            const std::lock_guard lock(page.m_mutex);
            if (page.m_pool.empty()) {
                m_converter = openConverter(page.m_name.c_str());
            } else {
                m_converter = std::move(page.m_pool.back());
                page.m_pool.pop_back();
            }
        }
        Borrowed(const Borrowed&) = delete;
        Borrowed& operator=(const Borrowed&) = delete;
        ~Borrowed()
        {
            const std::lock_guard lock(m_page.m_mutex);
            if (m_converter) m_page.m_pool.push_back(std::move(m_converter));
        }
        UConverter* get() const { return m_converter.get(); }

    private:
        const ConverterPage& m_page;
        Converter m_converter;
    };

    // Converts up to the end, or up to and with what cannot be: false. The last part ends in the first state.
    static bool convertKnown(UConverter& converter, const UChar*& from, const UChar* end, bool isLast,
                             Sink<char>& sink)
    {
        std::array<char, 512> part;
        for (;;) {
            char* to = part.data();
            UErrorCode error = U_ZERO_ERROR;
            ucnv_fromUnicode(&converter, &to, part.data() + part.size(), &from, end, nullptr, isLast, &error);
            putPart(part.data(), to, sink);
            if (error != U_BUFFER_OVERFLOW_ERROR) return U_SUCCESS(error);
        }
    }

    template <typename Unit, typename Part>
    static void putPart(const Part* begin, const Part* end, Sink<Unit>& sink)
    {
        for (; begin != end; ++begin) sink.put(static_cast<Unit>(*begin));
    }

    const std::string m_name;
    const std::size_t m_longest;
    mutable std::mutex m_mutex;
    mutable std::vector<Converter> m_pool;
};

bool fitsTables(const UConverter& converter)
{
    switch (ucnv_getType(&converter)) {
    case UCNV_SBCS:
    case UCNV_LATIN_1:
    case UCNV_US_ASCII:
        return true;
    case UCNV_MBCS:
        return ucnv_getMaxCharSize(&converter) <= 2;
    default:
        return false;
    }
}

} // namespace

std::unique_ptr<const CodePage> makeIcuPage(const CodePageName& name)
{
    Converter converter = openConverter(name.name);
    if (!converter) return nullptr;
    if (name.kind != ConverterKind::icuSingle && !fitsTables(*converter))
        return std::make_unique<ConverterPage>(name.name, std::move(converter));
    IcuSource source(*converter);
    return std::make_unique<TablePage>(source, codePagePatches(name.number));
}

bool hasIcuConverter(const char* name) { return openConverter(name) != nullptr; }

} // namespace corekit::detail
