#include "corekit/framework/MessageFormat.h"

#include "corekit/framework/String.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <string>

namespace corekit::detail {
namespace {

bool take(std::string_view& text, std::string_view prefix)
{
    if (!text.starts_with(prefix)) return false;
    text.remove_prefix(prefix.size());
    return true;
}

// A number of decimal digits, or -1 where none stands or it is past `limit`.
int takeNumber(std::string_view& text, int limit)
{
    int value = -1;
    while (!text.empty() && text.front() >= '0' && text.front() <= '9') {
        value = std::min(std::max(value, 0) * 10 + (text.front() - '0'), limit + 1);
        text.remove_prefix(1);
    }
    return value > limit ? -1 : value;
}

void takeSize(std::string_view& text, MessageInsert& insert, bool& isWide, bool& is64)
{
    if (take(text, "I64") || take(text, "ll")) {
        is64 = true;
    } else if (take(text, "h")) {
        insert.isShort = true;
    } else if (take(text, "l") || take(text, "w")) {
        isWide = true;
    } else {
        take(text, "I32");
    }
}

bool takeConversion(std::string_view& text, MessageInsert& insert)
{
    bool isWide = false, is64 = false;
    takeSize(text, insert, isWide, is64);
    if (text.empty()) return false;
    insert.conversion = text.front();
    text.remove_prefix(1);
    switch (insert.conversion) {
    case 'd':
    case 'i':
    case 'u':
    case 'o':
    case 'x':
    case 'X':
        insert.kind = is64 ? ArgumentKind::integer64 : ArgumentKind::integer;
        return true;
    case 'p':
        insert.kind = ArgumentKind::pointer;
        return true;
    case 'c':
    case 'C':
        isWide = isWide || (insert.conversion == 'C' && !insert.isShort);
        insert.kind = isWide ? ArgumentKind::wideChar : ArgumentKind::integer;
        insert.conversion = 'c';
        return true;
    case 's':
    case 'S':
        isWide = isWide || (insert.conversion == 'S' && !insert.isShort);
        insert.kind = isWide ? ArgumentKind::wideText : ArgumentKind::text;
        insert.conversion = 's';
        return true;
    default:
        return false;
    }
}

bool takeForm(std::string_view& text, MessageInsert& insert)
{
    const auto flagsEnd = std::min(text.find_first_not_of("-+0# "), text.size());
    insert.flags = text.substr(0, std::min<std::size_t>(flagsEnd, 8));
    text.remove_prefix(flagsEnd);
    insert.starWidth = take(text, "*");
    if (!insert.starWidth) insert.width = takeNumber(text, MessageInsert::maxWidth);
    if (take(text, ".")) {
        insert.starPrecision = take(text, "*");
        if (!insert.starPrecision) insert.precision = std::max(takeNumber(text, MessageInsert::maxWidth), 0);
    }
    return takeConversion(text, insert) && take(text, "!");
}

using Arguments = std::array<FormatArgument, MessageInsert::maxNumber + 1>;

// Takes the arguments off the list in order, each by the kind that the text gives it.
Arguments collect(std::string_view text, va_list args)
{
    std::array<ArgumentKind, MessageInsert::maxNumber + 1> kinds{};
    int last = 0;
    for (auto at = text.find('%'); at < text.size(); at = text.find('%', at)) {
        const MessageInsert insert = MessageInsert::Parse(text.substr(at));
        at += std::max<std::size_t>(insert.length, 2);
        if (insert.length == 0) continue;
        for (int star = insert.number; star < insert.ValueNumber(); ++star)
            kinds[static_cast<std::size_t>(star)] = ArgumentKind::integer;
        kinds[static_cast<std::size_t>(insert.ValueNumber())] = insert.kind;
        last = std::max(last, insert.ValueNumber());
    }
    Arguments values{};
    for (int i = 1; i <= last; ++i) {
        FormatArgument& value = values[static_cast<std::size_t>(i)];
        switch (kinds[static_cast<std::size_t>(i)]) {
        case ArgumentKind::integer:
        case ArgumentKind::wideChar:
            value = FormatArgument(va_arg(args, int));
            break;
        case ArgumentKind::integer64:
            value = FormatArgument(va_arg(args, long long));
            break;
        default:
            value = FormatArgument(va_arg(args, const void*));
        }
    }
    return values;
}

std::string formOf(const MessageInsert& insert, const Arguments& values)
{
    std::size_t number = static_cast<std::size_t>(insert.number);
    const auto star = [&] {
        return std::clamp<LONGLONG>(values[number++].Integer(), -MessageInsert::maxWidth,
                                    MessageInsert::maxWidth);
    };
    const LONGLONG width = insert.starWidth ? star() : insert.width;
    const LONGLONG precision = insert.starPrecision ? star() : insert.precision;
    std::string form = "%";
    form += insert.flags;
    if (width >= 0 || insert.starWidth) form += std::to_string(width);
    if (precision >= 0) form.append(".").append(std::to_string(precision));
    switch (insert.kind) {
    case ArgumentKind::integer64:
        form += "ll";
        break;
    case ArgumentKind::wideChar:
    case ArgumentKind::wideText:
        form += 'l';
        break;
    default:
        if (insert.isShort) form += 'h';
    }
    return form + insert.conversion;
}

// What a percent sign and another character stand for; false ends the text.
bool appendEscape(CString& result, char escape)
{
    if (escape == '0') return false;
    if (escape == 'n')
        result += "\r\n";
    else if (escape == 'r')
        result += '\r';
    else
        result += escape;
    return true;
}

} // namespace

// A message text with its arguments in place.
class MessageText {
public:
    static CString Of(std::string_view text, const Arguments& values);
};

MessageInsert MessageInsert::Parse(std::string_view text)
{
    MessageInsert insert;
    std::string_view rest = text.substr(1);
    if (rest.empty() || rest.front() < '1' || rest.front() > '9') return insert;
    std::string_view digits = rest.substr(0, 2);
    const std::size_t digitsTaken = digits.size();
    insert.number = takeNumber(digits, maxNumber);
    rest.remove_prefix(digitsTaken - digits.size());
    insert.length = text.size() - rest.size();
    if (!take(rest, "!")) return insert;
    MessageInsert formed = insert;
    if (!takeForm(rest, formed) || formed.ValueNumber() > maxNumber) return insert;
    formed.length = text.size() - rest.size();
    return formed;
}

CString MessageText::Of(std::string_view text, const Arguments& values)
{
    CString result, part;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t percent = std::min(text.find('%', at), text.size());
        result.Append(text.data() + at, static_cast<int>(percent - at));
        at = percent;
        if (at == text.size()) break;
        const MessageInsert insert = MessageInsert::Parse(text.substr(at));
        if (insert.length > 0) {
            part.FormatList(formOf(insert, values).c_str(),
                            {&values[static_cast<std::size_t>(insert.ValueNumber())], 1});
            result += part;
            at += insert.length;
        } else if (at + 1 == text.size()) {
            result += '%';
            break;
        } else {
            if (!appendEscape(result, text[at + 1])) break;
            at += 2;
        }
    }
    return result;
}

} // namespace corekit::detail

using namespace corekit::detail;

void CString::FormatMessageV(const char* format, va_list args)
{
    if (!format) format = "";
    *this = MessageText::Of(format, collect(format, args));
}

void CString::FormatMessageList(const char* format, FormatArguments args)
{
    Arguments values{};
    std::copy_n(args.begin(), std::min(args.size(), values.size() - 1), values.begin() + 1);
    *this = MessageText::Of(format ? format : "", values);
}
