// A file that a command writes piece by piece.
#pragma once

#include "Output.h"

#include "corekit/platform/ReplacedFile.h"

class CFileStream;

// Takes its target's place at Commit; without it the target stays what it was. All throw std::runtime_error
// with the system's reason.
class OutputFile {
public:
    explicit OutputFile(const std::string& target) : m_target(target), m_file(target)
    {
        if (!m_file) FailFor(m_target);
    }
    void Write(std::string_view bytes)
    {
        if (!m_file.Write(bytes)) FailFor(m_target);
    }
    // A stream over the new file, for the caller to flush and close before Commit.
    void Open(CFileStream& stream);
    void Commit()
    {
        if (!m_file.Commit()) FailFor(m_target);
    }

private:
    std::string m_target;
    corekit::ReplacedFile m_file;
};
