#include "corekit/stores/ZipEntry.h"

#include <algorithm>

namespace {
constexpr uLong isEncrypted = 1, hasLateSizes = 8;
constexpr int headerSize = 12;

DWORD crcStep(DWORD crc, BYTE byte)
{
    return static_cast<DWORD>(get_crc_table()[(crc ^ byte) & 0xFF]) ^ crc >> 8;
}
} // namespace

namespace corekit::detail {

void ZipCipher::Stir(BYTE plain)
{
    m_keys[0] = crcStep(m_keys[0], plain);
    m_keys[1] = (m_keys[1] + (m_keys[0] & 0xFF)) * 134775813 + 1;
    m_keys[2] = crcStep(m_keys[2], static_cast<BYTE>(m_keys[1] >> 24));
}

ZipEntry::ZipEntry(unzFile archive, const unz_file_info64& info, const char* password)
    : m_archive(archive), m_expectedSize(info.uncompressed_size), m_expectedCrc(info.crc)
{
    const bool isKnown = info.compression_method == 0 || info.compression_method == Z_DEFLATED;
    m_openCode = !isKnown                  ? UNZ_BADZIPFILE
                 : info.flag & isEncrypted ? OpenEncrypted(info, password)
                                           : unzOpenCurrentFile(archive);
    m_isOpen = m_isOpen || m_openCode == UNZ_OK;
}

ZipEntry::~ZipEntry() { Close(); }

int ZipEntry::OpenEncrypted(const unz_file_info64& info, const char* password)
{
    if (!password) return UNZ_PARAMERROR;
    int method = 0, level = 0;
    if (const int code = unzOpenCurrentFile2(m_archive, &method, &level, 1)) return code;
    m_isOpen = true;

    m_decryption = std::make_unique<Decryption>(password);
    BYTE header[headerSize];
    if (unzReadCurrentFile(m_archive, header, headerSize) != headerSize) return UNZ_BADZIPFILE;
    for (BYTE& byte : header) byte = m_decryption->cipher.Decrypt(byte);
    const uLong check = info.flag & hasLateSizes ? info.dosDate >> 8 : info.crc >> 24;
    if (header[headerSize - 1] != (check & 0xFF)) return UNZ_PARAMERROR;

    m_decryption->rest = info.uncompressed_size;
    if (info.compression_method == 0) return UNZ_OK;
    if (const int code = inflateInit2(&m_decryption->state, -MAX_WBITS)) return code;
    m_decryption->isPacked = true;
    return UNZ_OK;
}

int ZipEntry::Read(BYTE* buffer, unsigned size)
{
    const int count =
        m_decryption ? Unpack(buffer, static_cast<unsigned>(std::min<DWORDLONG>(size, m_decryption->rest)))
                     : unzReadCurrentFile(m_archive, buffer, size);
    if (count <= 0) return count;
    if (m_decryption) m_decryption->rest -= static_cast<unsigned>(count);
    m_size += static_cast<unsigned>(count);
    m_crc = crc32(m_crc, buffer, static_cast<uInt>(count));
    return count;
}

int ZipEntry::Refill()
{
    Decryption& d = *m_decryption;
    const int count = unzReadCurrentFile(m_archive, d.raw.data(), static_cast<unsigned>(d.raw.size()));
    for (int i = 0; i < count; ++i) {
        BYTE& byte = d.raw[static_cast<std::size_t>(i)];
        byte = d.cipher.Decrypt(byte);
    }
    d.state.next_in = d.raw.data();
    d.state.avail_in = static_cast<uInt>(std::max(count, 0));
    return count;
}

int ZipEntry::Unpack(BYTE* buffer, unsigned size)
{
    z_stream& state = m_decryption->state;
    if (!m_decryption->isPacked) {
        if (size && state.avail_in == 0)
            if (const int count = Refill(); count <= 0) return count;
        const unsigned count = std::min(size, state.avail_in);
        std::copy_n(state.next_in, count, buffer);
        state.next_in += count;
        state.avail_in -= count;
        return static_cast<int>(count);
    }
    state.next_out = buffer;
    state.avail_out = size;
    for (int code = Z_OK; state.avail_out != 0 && code != Z_STREAM_END;) {
        if (state.avail_in == 0)
            if (const int count = Refill(); count <= 0) return count < 0 ? count : UNZ_BADZIPFILE;
        code = inflate(&state, Z_NO_FLUSH);
        if (code != Z_OK && code != Z_STREAM_END) return code < 0 ? code : Z_DATA_ERROR;
    }
    return static_cast<int>(size - state.avail_out);
}

int ZipEntry::Close()
{
    if (!m_isOpen) return UNZ_OK;
    m_isOpen = false;
    const int code = unzCloseCurrentFile(m_archive);
    if (code != UNZ_OK || m_openCode != UNZ_OK) return code;
    return m_size == m_expectedSize && m_crc == m_expectedCrc ? UNZ_OK : UNZ_CRCERROR;
}

} // namespace corekit::detail
