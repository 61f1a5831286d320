// Property stores.
#include "growth.h"
#include "workload.h"

#include "corekit/stores/MemoryStream.h"
#include "corekit/stores/PropertyStore.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using growth::Curve;
using growth::Microseconds;

constexpr std::size_t few = 1000; // operations among many entries

class Settings {
public:
    explicit Settings(std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i) store.SetValue(Name(i), static_cast<int>(i));
    }
    // Stands until the next one.
    const char* Name(std::size_t number)
    {
        std::snprintf(m_name, sizeof m_name, "Setting %zu", number);
        return m_name;
    }
    // Any of the first so many.
    std::size_t AnyOf(std::size_t count) { return m_random.below(static_cast<std::uint32_t>(count)); }

    CPropertyStore store;

private:
    workload::Rng m_random{1};
    char m_name[32];
};

const Curve getValue({"property store: get a value", 2}, [](std::size_t count) {
    Settings settings(count);
    return Microseconds(100 * few, [&](std::size_t) {
        const std::size_t asked = settings.AnyOf(count);
        std::size_t value = 0;
        int found = 0;
        if (settings.store.GetValue(settings.Name(asked), found)) value = static_cast<std::size_t>(found);
        if (value != asked) std::abort();
    });
});

const Curve addValue({"property store: add a value", 2}, [](std::size_t count) {
    Settings settings(0);
    return Microseconds(count, [&](std::size_t i) { settings.store.SetValue(settings.Name(i), 1); });
});

const Curve deleteLast({"property store: delete the last value", 1}, [](std::size_t count) {
    Settings settings(count);
    return Microseconds(few,
                        [&](std::size_t i) { settings.store.DeleteValue(settings.Name(count - 1 - i)); });
});

const Curve deleteAny({"property store: delete any value", 2}, [](std::size_t count) {
    Settings settings(count);
    const auto order = workload::permutation(static_cast<std::uint32_t>(count), 1);
    return Microseconds(few, [&](std::size_t i) { settings.store.DeleteValue(settings.Name(order[i])); });
});

const Curve setOnCopy({"property store: copy, then set a value", 2}, [](std::size_t count) {
    Settings settings(count);
    return Microseconds(few, [&](std::size_t i) {
        CPropertyStore copy = settings.store;
        copy.SetValue(settings.Name(settings.AnyOf(count)), static_cast<int>(i));
    });
});

const Curve addToCopy({"property store: copy, then add a value", 2}, [](std::size_t count) {
    Settings settings(count);
    return Microseconds(few, [&](std::size_t i) {
        CPropertyStore copy = settings.store;
        copy.SetValue(settings.Name(count + i), 1);
    });
});

const Curve
    readAndLook({"property store: read a value from a stream and look at it", 2}, [](std::size_t count) {
        CMemoryStream stream(static_cast<int>(64 * count), 65536);
        Settings(count).store.WriteStream(stream);
        stream.SeekToPos(0);
        CPropertyStore store;
        return Microseconds(1,
                            [&](std::size_t) {
                                store.ReadStream(stream);
                                if (store.GetPropertyStoreValueCount() != static_cast<int>(count))
                                    std::abort();
                            }) /
               static_cast<double>(count);
    });

} // namespace
