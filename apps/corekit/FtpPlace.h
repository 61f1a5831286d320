// Where the ftp commands go, and who they go as.
#pragma once

#include <string>
#include <string_view>

// user@host:port/folder; all but the host may be missing. "ftp://" before it is allowed. The folder lies
// below the one that the server starts in, or below its root when it begins with another slash.
struct FtpPlace {
    std::string user, host, folder;
    int port = 21;
};

// Throws std::runtime_error when the text is no place.
FtpPlace ParseFtpPlace(std::string_view text);

struct FtpAccount {
    std::string user, password;
};

// The account for a place, from the first source that knows it: a password given; COREKIT_FTP_PASSWORD; the
// file of accounts (as ~/.netrc: "machine HOST login USER password PASSWORD", or "default"), of which the
// usual one may be missing; a question on the terminal. Without a user's name anywhere it is anonymous.
// Throws std::runtime_error.
FtpAccount FindFtpAccount(const FtpPlace& place, const std::string& password, const std::string& accountFile);
