#include "corekit/platform/posix/text/CodePage.h"
#include "corekit/platform/posix/text/TablePage.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <iconv.h>

namespace corekit::detail {
namespace {

class IconvSource final : public PageSource {
public:
    explicit IconvSource(const char* name)
        : m_decoder(::iconv_open("UTF-16LE", name)), m_encoder(::iconv_open(name, "UTF-16LE"))
    {
    }
    IconvSource(const IconvSource&) = delete;
    IconvSource& operator=(const IconvSource&) = delete;
    ~IconvSource() override
    {
        for (iconv_t descriptor : {m_decoder, m_encoder})
            if (isOpen(descriptor)) ::iconv_close(descriptor);
    }

    bool isUsable() const { return isOpen(m_decoder) && isOpen(m_encoder); }

    Answer decode(std::string_view bytes, WCHAR& unit) override
    {
        std::array<char, 8> result;
        const auto [length, error] = convert(m_decoder, bytes, result);
        if (error == EINVAL && bytes.size() == 1) return Answer::leadByte;
        if (error != 0 || length != sizeof unit) return Answer::nothing;
        std::memcpy(&unit, result.data(), sizeof unit);
        return Answer::unit;
    }

    std::string encode(WCHAR unit) override
    {
        std::array<char, 8> result;
        std::array<char, sizeof unit> text;
        std::memcpy(text.data(), &unit, sizeof unit);
        const auto [length, error] = convert(m_encoder, {text.data(), text.size()}, result);
        return error == 0 ? std::string(result.data(), length) : std::string();
    }

private:
    struct Outcome {
        std::size_t length;
        int error;
    };

    static bool isOpen(iconv_t descriptor) { return reinterpret_cast<std::intptr_t>(descriptor) != -1; }

    static Outcome convert(iconv_t descriptor, std::string_view from, std::array<char, 8>& to)
    {
        std::array<char, 2> text{};
        std::memcpy(text.data(), from.data(), from.size());
        char* in = text.data();
        char* out = to.data();
        std::size_t inLeft = from.size(), outLeft = to.size();
        ::iconv(descriptor, nullptr, nullptr, nullptr, nullptr);
        const bool failed = ::iconv(descriptor, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1);
        return {to.size() - outLeft, failed ? errno : 0};
    }

    iconv_t m_decoder;
    iconv_t m_encoder;
};

} // namespace

std::unique_ptr<const CodePage> makeIconvPage(const CodePageName& name)
{
    IconvSource source(name.name);
    return source.isUsable() ? std::make_unique<TablePage>(source, codePagePatches(name.number)) : nullptr;
}

bool hasIconvConverter(const char* name) { return IconvSource(name).isUsable(); }

} // namespace corekit::detail
