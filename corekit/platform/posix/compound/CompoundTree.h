// A compound file as a tree in memory: what is unchanged stays in the file, what was written is held here.
#pragma once

#include "corekit/platform/Types.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

using GsfInfile = struct _GsfInfile;
using GsfInput = struct _GsfInput;

namespace corekit::detail {

// Anything with a name: a storage, or a stream.
class CompoundNode {
public:
    explicit CompoundNode(std::string name, bool isStorage) : m_name(std::move(name)), m_isStorage(isStorage)
    {
    }
    // An element of a file; what it is shows when it is first looked at.
    CompoundNode(std::string name, std::shared_ptr<GsfInfile> above, int index, std::uint64_t fileSize)
        : m_name(std::move(name)), m_above(std::move(above)), m_index(index), m_fileSize(fileSize)
    {
    }
    // The root of a file that has been checked; null if it cannot be read.
    static std::shared_ptr<CompoundNode> OpenRoot(const std::string& path);

    const std::string& Name() const { return m_name; } // UTF-8
    bool IsStorage();
    // False for an element of a file that cannot be had or claims to be larger than the file.
    bool IsSound();
    const std::string& Folded(); // the name by which it is found

    // Of a storage.
    CLSID classId{};
    const std::vector<std::shared_ptr<CompoundNode>>& Children();
    std::shared_ptr<CompoundNode> Find(const std::string& name);
    void Add(std::shared_ptr<CompoundNode> child);

    // Of a stream. Read gives what there is, false if the file cannot be read; Change brings it into memory.
    bool isOpen = false;
    std::uint64_t Size();
    bool Read(std::uint64_t place, void* buffer, std::size_t count);
    std::string* Change();
    void Empty() { m_bytes.emplace(); }
    // Gives back what looking at an element took.
    void Forget();

    // Writes the tree below this root as a new file.
    bool Save(int descriptor);
    // Takes what is unchanged, by now everything, from this new root.
    void Rebase(CompoundNode& root);

private:
    void Resolve();

    std::string m_name, m_folded;
    bool m_isStorage = false;
    std::shared_ptr<GsfInfile> m_above;
    int m_index = -1;
    std::uint64_t m_fileSize = 0;
    bool m_resolved = false;
    std::shared_ptr<GsfInput> m_input; // of the element itself
    std::optional<std::vector<std::shared_ptr<CompoundNode>>> m_children;
    std::optional<std::string> m_bytes;
};

} // namespace corekit::detail
