// A compound file as a tree in memory: what is unchanged stays in the file, what was written is held here.
#pragma once

#include "corekit/platform/posix/compound/CompoundReader.h"
#include "corekit/platform/Types.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corekit::detail {

// Anything with a name: a storage, or a stream.
class CompoundNode : public std::enable_shared_from_this<CompoundNode> {
public:
    CompoundNode(std::u16string_view name, bool isStorage);
    // An element of a file.
    CompoundNode(std::shared_ptr<const CompoundReader> file, std::uint32_t entry);

    const std::u16string& Name() const { return m_name; }
    const std::u16string& Folded() const { return m_folded; } // the name by which it is found
    bool IsStorage() const { return m_isStorage; }
    // False for a stream that its file does not hold whole.
    bool IsSound() const { return m_bytes || !m_file || m_file->At(m_entry).isSound; }

    // Of a storage.
    CLSID classId{};
    const std::vector<std::shared_ptr<CompoundNode>>& Children();
    std::shared_ptr<CompoundNode> Find(std::u16string_view name);
    void Add(std::shared_ptr<CompoundNode> child);

    // Of a stream. Read takes what lies within it, false if the file cannot be read; Change brings it into
    // memory, null if it cannot be read.
    bool isOpen = false;
    std::uint64_t Size() const;
    bool Read(std::uint64_t place, void* buffer, std::size_t count);
    std::string* Change();
    void Empty() { m_bytes.emplace(); }
    void Forget() { m_chain.reset(); } // what reading it took

    // The tree has been written: this node is this entry of that file now.
    void Rebase(std::shared_ptr<const CompoundReader> file, std::uint32_t entry);

private:
    void Index(const std::shared_ptr<CompoundNode>& child);

    std::u16string m_name, m_folded;
    bool m_isStorage;
    std::shared_ptr<const CompoundReader> m_file;
    std::uint32_t m_entry = 0;
    std::optional<CompoundReader::Chain> m_chain;
    std::optional<std::vector<std::shared_ptr<CompoundNode>>> m_children;
    std::unordered_map<std::u16string_view, CompoundNode*> m_byName; // of the children
    std::optional<std::string> m_bytes;
};

} // namespace corekit::detail
