#include "corekit/platform/posix/compound/CompoundTree.h"

#include <unicode/uchar.h>

namespace corekit::detail {

namespace {
// Upper case, unit for unit: what the format compares by.
std::u16string folded(std::u16string_view name)
{
    std::u16string upper(name);
    for (char16_t& unit : upper) {
        const UChar32 other = u_toupper(unit);
        if (other <= 0xFFFF) unit = static_cast<char16_t>(other);
    }
    return upper;
}
} // namespace

CompoundNode::CompoundNode(std::u16string_view name, bool isStorage)
    : m_name(name), m_folded(folded(name)), m_isStorage(isStorage)
{
}

CompoundNode::CompoundNode(std::shared_ptr<const CompoundReader> file, std::uint32_t entry)
    : CompoundNode(file->At(entry).name, file->At(entry).isStorage)
{
    classId = file->At(entry).classId;
    m_entry = entry;
    m_file = std::move(file);
}

void CompoundNode::Index(const std::shared_ptr<CompoundNode>& child)
{
    m_byName.emplace(child->Folded(), child.get());
}

const std::vector<std::shared_ptr<CompoundNode>>& CompoundNode::Children()
{
    if (m_children) return *m_children;
    m_children.emplace();
    if (!m_file || !m_isStorage) return *m_children;
    for (const std::uint32_t entry : m_file->Below(m_entry)) {
        m_children->push_back(std::make_shared<CompoundNode>(m_file, entry));
        Index(m_children->back());
    }
    return *m_children;
}

std::shared_ptr<CompoundNode> CompoundNode::Find(std::u16string_view name)
{
    Children();
    const auto found = m_byName.find(folded(name));
    return found == m_byName.end() ? nullptr : found->second->shared_from_this();
}

void CompoundNode::Add(std::shared_ptr<CompoundNode> child)
{
    Children();
    Index(child);
    m_children->push_back(std::move(child));
}

std::uint64_t CompoundNode::Size() const
{
    if (m_bytes) return m_bytes->size();
    return m_file && !m_isStorage ? m_file->At(m_entry).size : 0;
}

bool CompoundNode::Read(std::uint64_t place, void* buffer, std::size_t count)
{
    if (m_bytes) return m_bytes->copy(static_cast<char*>(buffer), count, place) == count;
    if (count == 0) return true;
    if (!m_file || !IsSound()) return false;
    const auto& element = m_file->At(m_entry);
    if (!m_chain) m_chain = m_file->ChainOf(element);
    return m_file->Read(element, *m_chain, place, static_cast<char*>(buffer), count);
}

std::string* CompoundNode::Change()
{
    if (m_bytes) return &*m_bytes;
    if (!IsSound()) return nullptr;
    std::string bytes(Size(), '\0');
    if (!Read(0, bytes.data(), bytes.size())) return nullptr;
    return &m_bytes.emplace(std::move(bytes));
}

void CompoundNode::Rebase(std::shared_ptr<const CompoundReader> file, std::uint32_t entry)
{
    m_file = std::move(file);
    m_entry = entry;
    m_chain.reset();
    m_bytes.reset();
}

} // namespace corekit::detail
