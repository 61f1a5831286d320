#include "FtpPlace.h"

#include "corekit/platform/HiddenInput.h"

#include <charconv>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <stdexcept>

namespace {

// Whether the text can be a part of a command.
void Check(std::string_view text)
{
    for (const char c : text)
        if (static_cast<unsigned char>(c) < ' ' || c == 127)
            throw std::runtime_error("names on a server cannot hold control characters");
}

// The account of a host, and of a user if one is named.
std::optional<FtpAccount> Listed(std::istream& file, const FtpPlace& place)
{
    std::optional<FtpAccount> found;
    FtpAccount account;
    bool isHost = false;
    const auto take = [&] {
        const bool isUser = place.user.empty() || account.user == place.user;
        if (isHost && isUser && !account.password.empty() && !found) found = account;
        account = {};
    };
    for (std::string word, value; file >> word;) {
        if (word == "machine" || word == "default") {
            take();
            isHost = word == "default" || (file >> value && value == place.host);
        } else if (word == "login") {
            file >> account.user;
        } else if (word == "password") {
            file >> account.password;
        } else if (word.starts_with('#')) {
            std::getline(file, word);
        }
    }
    take();
    return found;
}

std::optional<FtpAccount> FromFile(const std::string& named, const FtpPlace& place)
{
    const char* const home = std::getenv("HOME");
    const std::string name = !named.empty() ? named : home ? std::string(home) + "/.netrc" : "";
    std::ifstream file(name);
    if (!file && !named.empty()) throw std::runtime_error(named + ": cannot be read");
    return Listed(file, place);
}

} // namespace

FtpPlace ParseFtpPlace(std::string_view text)
{
    constexpr std::string_view scheme = "ftp://";
    if (text.starts_with(scheme)) text.remove_prefix(scheme.size());
    FtpPlace place;
    const std::size_t slash = text.find('/');
    if (slash != text.npos) place.folder = text.substr(slash + 1);
    std::string_view server = text.substr(0, slash);
    if (const std::size_t at = server.rfind('@'); at != server.npos) {
        place.user = server.substr(0, at);
        server.remove_prefix(at + 1);
        if (place.user.find(':') != place.user.npos)
            throw std::runtime_error("a password does not belong here, where others see it (see --help)");
    }
    const std::size_t colon = server.find(':');
    place.host = server.substr(0, colon);
    if (colon != server.npos) {
        const std::string_view port = server.substr(colon + 1);
        const auto [end, error] = std::from_chars(port.data(), port.data() + port.size(), place.port);
        if (error != std::errc() || end != port.data() + port.size() || place.port < 1 || place.port > 65535)
            throw std::runtime_error("'" + std::string(port) + "' is no port");
    }
    if (place.host.empty()) throw std::runtime_error("'" + std::string(text) + "' names no host");
    Check(text);
    return place;
}

FtpAccount FindFtpAccount(const FtpPlace& place, const std::string& password, const std::string& accountFile)
{
    Check(password);
    if (!password.empty()) return {place.user, password};
    const char* const variable = std::getenv("COREKIT_FTP_PASSWORD");
    if (!place.user.empty() && variable) return {place.user, variable};
    if (auto account = FromFile(accountFile, place)) return *account;
    if (place.user.empty() || place.user == "anonymous") return {"anonymous", "anonymous@"};
    FtpAccount account{place.user, ""};
    if (!ReadHiddenLine((place.user + "@" + place.host + "'s password: ").c_str(), account.password))
        throw std::runtime_error("no password for " + place.user + "@" + place.host + " (see --help)");
    return account;
}
