#include "corekit/platform/posix/compound/CompoundTree.h"

#include "corekit/platform/posix/compound/DescriptorInput.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/registry/RegistryText.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-input.h>
#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-stdio.h>
#include <gsf/gsf-utils.h>
#include <mutex>
#include <string_view>
#include <unistd.h>

namespace {
using corekit::detail::CompoundNode;

constexpr std::size_t kCopyBuffer = 65536;

template <class T>
std::shared_ptr<T> OwnGObject(T* object)
{
    return std::shared_ptr<T>(object, [](T* owned) {
        if (owned) g_object_unref(owned);
    });
}

// What the library says about damaged elements is reported by results here; it speaks in nobody's name, so
// other remarks of that kind go on.
void OtherRemarks(const char* domain, GLogLevelFlags level, const char* text, void*)
{
    if (!std::string_view(text ? text : "").starts_with("Unable to get child"))
        g_log_default_handler(domain, level, text, nullptr);
}

void StartLibrary()
{
    static std::once_flag once;
    std::call_once(once, [] {
        gsf_init();
        const auto silent = [](const char*, GLogLevelFlags, const char*, void*) {};
        const auto levels = static_cast<GLogLevelFlags>(G_LOG_LEVEL_WARNING | G_LOG_LEVEL_CRITICAL);
        for (const char* domain : {"libgsf", "libgsf:msole"})
            g_log_set_handler(domain, levels, silent, nullptr);
        g_log_set_handler(nullptr, G_LOG_LEVEL_WARNING, OtherRemarks, nullptr);
    });
}

CLSID ClassOf(GsfInput* storage)
{
    guint8 bytes[16] = {};
    CLSID id{};
    if (GSF_IS_INFILE_MSOLE(storage)) gsf_infile_msole_get_class_id(GSF_INFILE_MSOLE(storage), bytes);
    std::memcpy(&id, bytes, sizeof id);
    return id;
}

bool CopyStream(CompoundNode& stream, GsfOutput* output)
{
    std::vector<char> buffer(kCopyBuffer);
    const std::uint64_t size = stream.Size();
    for (std::uint64_t at = 0; at < size;) {
        const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), size - at));
        if (!stream.Read(at, buffer.data(), count)) return false;
        if (!gsf_output_write(output, count, reinterpret_cast<const guint8*>(buffer.data()))) return false;
        at += count;
    }
    return true;
}

bool WriteStorage(CompoundNode& storage, GsfOutfile* output)
{
    guint8 bytes[16];
    std::memcpy(bytes, &storage.classId, sizeof bytes);
    gsf_outfile_msole_set_class_id(GSF_OUTFILE_MSOLE(output), bytes);
    for (const auto& child : storage.Children()) {
        const bool isStorage = child->IsStorage();
        const auto part = OwnGObject(gsf_outfile_new_child(output, child->Name().c_str(), isStorage));
        if (!part) return false;
        const bool written =
            isStorage ? WriteStorage(*child, GSF_OUTFILE(part.get())) : CopyStream(*child, part.get());
        if (!gsf_output_close(part.get()) || !written) return false;
    }
    return true;
}
} // namespace

namespace corekit::detail {

std::shared_ptr<CompoundNode> CompoundNode::OpenRoot(const std::string& path)
{
    StartLibrary();
    const auto file = OwnGObject(OpenInput(path));
    if (!file) return nullptr;
    auto root = std::make_shared<CompoundNode>("", true);
    root->m_fileSize = static_cast<std::uint64_t>(gsf_input_size(file.get()));
    root->m_input = OwnGObject(GSF_INPUT(gsf_infile_msole_new(file.get(), nullptr)));
    if (!root->m_input) return nullptr;
    root->m_resolved = true;
    root->classId = ClassOf(root->m_input.get());
    return root;
}

void CompoundNode::Resolve()
{
    if (m_resolved || !m_above) return;
    m_resolved = true;
    m_input = OwnGObject(gsf_infile_child_by_index(m_above.get(), m_index));
    if (!m_input) return;
    m_isStorage = GSF_IS_INFILE(m_input.get()) && gsf_infile_num_children(GSF_INFILE(m_input.get())) >= 0;
    if (m_isStorage) classId = ClassOf(m_input.get());
}

bool CompoundNode::IsStorage()
{
    Resolve();
    return m_isStorage;
}

bool CompoundNode::IsSound()
{
    Resolve();
    return m_bytes || !m_above || (m_input && (m_isStorage || Size() <= m_fileSize));
}

const std::vector<std::shared_ptr<CompoundNode>>& CompoundNode::Children()
{
    Resolve();
    if (m_children) return *m_children;
    m_children.emplace();
    if (!m_input || !m_isStorage) return *m_children;
    const std::shared_ptr<GsfInfile> infile(m_input, GSF_INFILE(m_input.get()));
    const int count = gsf_infile_num_children(infile.get());
    for (int i = 0; i < count; ++i)
        if (const char* name = gsf_infile_name_by_index(infile.get(), i))
            m_children->push_back(std::make_shared<CompoundNode>(name, infile, i, m_fileSize));
    return *m_children;
}

const std::string& CompoundNode::Folded()
{
    if (m_folded.empty()) m_folded = FoldName(m_name);
    return m_folded;
}

std::shared_ptr<CompoundNode> CompoundNode::Find(const std::string& name)
{
    const std::string folded = FoldName(name);
    const auto& children = Children();
    const auto found =
        std::ranges::find_if(children, [&](const auto& child) { return child->Folded() == folded; });
    return found == children.end() ? nullptr : *found;
}

void CompoundNode::Add(std::shared_ptr<CompoundNode> child)
{
    Children();
    m_children->push_back(std::move(child));
}

std::uint64_t CompoundNode::Size()
{
    if (m_bytes) return m_bytes->size();
    Resolve();
    return m_input ? static_cast<std::uint64_t>(std::max<gsf_off_t>(gsf_input_size(m_input.get()), 0)) : 0;
}

bool CompoundNode::Read(std::uint64_t place, void* buffer, std::size_t count)
{
    if (m_bytes) return m_bytes->copy(static_cast<char*>(buffer), count, place) == count;
    Resolve();
    if (count == 0) return true;
    return m_input && !gsf_input_seek(m_input.get(), static_cast<gsf_off_t>(place), G_SEEK_SET) &&
           gsf_input_read(m_input.get(), count, static_cast<guint8*>(buffer));
}

std::string* CompoundNode::Change()
{
    if (m_bytes) return &*m_bytes;
    if (!IsSound()) return nullptr;
    std::string bytes(Size(), '\0');
    if (!Read(0, bytes.data(), bytes.size())) return nullptr;
    return &m_bytes.emplace(std::move(bytes));
}

void CompoundNode::Forget()
{
    if (!m_above || m_isStorage || isOpen) return;
    m_resolved = false;
    m_input.reset();
}

// A write that failed once has left a gap, whatever became of the later ones.
bool CompoundNode::Save(int descriptor)
{
    StartLibrary();
    errno = 0;
    std::FILE* file = fdopen(fcntl(descriptor, F_DUPFD_CLOEXEC, 0), "wb");
    if (!file) return setLastErrorFromErrno(), false;
    const auto sink = OwnGObject(gsf_output_stdio_new_FILE("", file, TRUE));
    bool written = false;
    if (sink) {
        const auto root = OwnGObject(gsf_outfile_msole_new(sink.get()));
        written = root && WriteStorage(*this, root.get());
        written = root && gsf_output_close(GSF_OUTPUT(root.get())) && written;
        if (!gsf_output_is_closed(sink.get())) written = gsf_output_close(sink.get()) && written;
        const GError* const failure = gsf_output_error(sink.get());
        if (failure && failure->code > 0) errno = failure->code;
        written = written && !failure;
    }
    written = std::fflush(file) == 0 && !std::ferror(file) && written;
    if (!written) setLastErrorFromErrno();
    return std::fclose(file) == 0 && written;
}

void CompoundNode::Rebase(CompoundNode& root)
{
    m_above = root.m_above;
    m_index = root.m_index;
    m_input = root.m_input;
    m_fileSize = root.m_fileSize;
    m_resolved = root.m_resolved;
    m_bytes.reset();
    if (!m_children) return;
    for (const auto& child : *m_children)
        if (const auto same = root.Find(child->m_name)) child->Rebase(*same);
}

} // namespace corekit::detail
