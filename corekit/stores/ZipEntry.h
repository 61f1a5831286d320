// One entry of an open archive while its bytes are read, encrypted in the traditional way or not.
#pragma once

#include "corekit/platform/Types.h"

#include <array>
#include <memory>
#include <minizip/unzip.h>
#include <zlib.h>

namespace corekit::detail {

// The traditional cipher of zip archives: three words that every byte stirs.
class ZipCipher {
public:
    explicit ZipCipher(const char* password)
    {
        for (; *password; ++password) Stir(static_cast<BYTE>(*password));
    }
    BYTE Decrypt(BYTE byte)
    {
        const DWORD mask = (m_keys[2] & 0xFFFF) | 2;
        const BYTE plain = static_cast<BYTE>(byte ^ (mask * (mask ^ 1) >> 8));
        Stir(plain);
        return plain;
    }

private:
    void Stir(BYTE plain);

    std::array<DWORD, 3> m_keys{0x12345678, 0x23456789, 0x34567890};
};

class ZipEntry {
public:
    // Opens the archive's current entry; `password` may be null and counts for encrypted entries alone.
    ZipEntry(unzFile archive, const unz_file_info64& info, const char* password);
    ~ZipEntry();
    ZipEntry(const ZipEntry&) = delete;
    ZipEntry& operator=(const ZipEntry&) = delete;

    // UNZ_OK if the entry is open; UNZ_PARAMERROR without the right password, UNZ_BADZIPFILE for a method
    // that is none of ours.
    int OpenCode() const { return m_openCode; }
    // How many bytes were read, 0 at the end, a negative code for damaged data.
    int Read(BYTE* buffer, unsigned size);
    // UNZ_CRCERROR if what was read is not what the archive promised, in length or checksum.
    int Close();

private:
    struct Decryption {
        ZipCipher cipher;
        bool isPacked = false;
        z_stream state{};
        std::array<BYTE, 8192> raw{};
        DWORDLONG rest = 0; // bytes that the entry still owes

        explicit Decryption(const char* password) : cipher(password) {}
        ~Decryption()
        {
            if (isPacked) inflateEnd(&state);
        }
        Decryption(const Decryption&) = delete;
        Decryption& operator=(const Decryption&) = delete;
    };

    int OpenEncrypted(const unz_file_info64& info, const char* password);
    int Refill(); // decrypts the next raw bytes; as Read
    int Unpack(BYTE* buffer, unsigned size);

    unzFile m_archive;
    DWORDLONG m_expectedSize, m_size = 0;
    uLong m_expectedCrc, m_crc = 0;
    int m_openCode;
    bool m_isOpen = false;
    std::unique_ptr<Decryption> m_decryption; // null for plain entries
};

} // namespace corekit::detail
