#include "corekit/platform/posix/compound/DescriptorInput.h"

#include "corekit/platform/posix/files/Descriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <gsf/gsf-input-impl.h>
#include <gsf/gsf-input.h>
#include <memory>
#include <new>
#include <sys/stat.h>
#include <vector>

namespace corekit::detail {
namespace {

struct State {
    std::shared_ptr<const Descriptor> file;
    std::vector<guint8> buffer; // for reads whose caller has none
};

struct Input {
    GsfInput base;
    State* state;
};

State& StateOf(GsfInput* input) { return *reinterpret_cast<Input*>(input)->state; }

GType InputType();

GsfInput* NewInput(std::shared_ptr<const Descriptor> file, gsf_off_t size)
{
    auto* const input = static_cast<GsfInput*>(g_object_new(InputType(), nullptr));
    StateOf(input).file = std::move(file);
    gsf_input_set_size(input, size);
    return input;
}

bool ReadAll(int fd, guint8* to, std::size_t count, gsf_off_t place)
{
    while (count > 0) {
        const ssize_t now = ::pread(fd, to, count, place);
        if (now < 0 && errno == EINTR) continue;
        if (now <= 0) return false;
        to += now, place += now, count -= static_cast<std::size_t>(now);
    }
    return true;
}

const guint8* Read(GsfInput* input, std::size_t count, guint8* buffer)
try {
    State& state = StateOf(input);
    if (!buffer) {
        if (state.buffer.size() < count) state.buffer.resize(count);
        buffer = state.buffer.data();
    }
    return ReadAll(state.file->get(), buffer, count, input->cur_offset) ? buffer : nullptr;
} catch (const std::bad_alloc&) {
    return nullptr;
}

void BeginClass(void* type, void*)
{
    auto* const input = static_cast<GsfInputClass*>(type);
    input->Dup = [](GsfInput* from, GError**) { return NewInput(StateOf(from).file, from->size); };
    input->Read = Read;
    input->Seek = [](GsfInput*, gsf_off_t, GSeekType) -> gboolean { return FALSE; }; // reads say where
    static const auto finalizeBase = static_cast<GObjectClass*>(g_type_class_peek_parent(type))->finalize;
    static_cast<GObjectClass*>(type)->finalize = [](GObject* object) {
        delete reinterpret_cast<Input*>(object)->state;
        finalizeBase(object);
    };
}

GType InputType()
{
    static const GType type = g_type_register_static_simple(
        gsf_input_get_type(), "CoreKitDescriptorInput", sizeof(GsfInputClass), BeginClass, sizeof(Input),
        [](GTypeInstance* made, void*) { reinterpret_cast<Input*>(made)->state = new State; }, GTypeFlags{});
    return type;
}

} // namespace

GsfInput* OpenInput(const std::string& path)
{
    auto file = std::make_shared<const Descriptor>(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat facts;
    if (!*file || ::fstat(file->get(), &facts) != 0 || !S_ISREG(facts.st_mode)) return nullptr;
    return NewInput(std::move(file), facts.st_size);
}

} // namespace corekit::detail
