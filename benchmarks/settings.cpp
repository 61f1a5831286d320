// The property store beside trees of settings that others offer: written, read and looked up by full path.
#include "corekit/stores/MemoryStream.h"
#include "corekit/stores/PropertyStore.h"
#include "workload.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <jansson.h>
#include <QCborMap>
#include <QCborValue>
#include <QVariantMap>
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <semaphore>
#include <thread>

namespace {

using benchmark::State;
using workload::Section;
using workload::Setting;

const Section& Tree()
{
    static const Section tree = workload::settingsTree();
    return tree;
}

const std::vector<workload::SettingPath>& Paths()
{
    static const auto paths = workload::settingPaths(Tree());
    return paths;
}

void CountValues(State& state)
{
    state.SetItemsProcessed(std::int64_t(state.iterations()) * std::int64_t(workload::valueCount(Tree())));
}

template <class LookUp>
void LookUpAll(State& state, LookUp lookUp)
{
    for (const auto& path : Paths()) {
        if (!lookUp(path)) {
            state.SkipWithError("a value is missing");
            return;
        }
    }
    for (auto _ : state)
        for (const auto& path : Paths()) benchmark::DoNotOptimize(lookUp(path));
    state.SetItemsProcessed(std::int64_t(state.iterations()) * std::int64_t(Paths().size()));
}

// --- CoreKit

void Fill(CPropertyStore& store, const Section& section)
{
    for (const Setting& v : section.values) {
        const char* name = v.name.c_str();
        switch (v.kind) {
        case Setting::Int:
            store.SetValue(name, int(v.number));
            break;
        case Setting::Bool:
            store.SetValue(name, int(v.number & 1));
            break;
        case Setting::Real:
            store.SetBinaryValue(name, &v.real, sizeof v.real);
            break;
        case Setting::Text:
            store.SetValue(name, v.text.c_str());
            break;
        }
    }
    for (const Section& child : section.children) {
        CPropertyStore nested;
        Fill(nested, child);
        store.SetPropertyStore(child.name.c_str(), nested);
    }
}

CPropertyStore& Store()
{
    static CPropertyStore store;
    static const bool filled = (Fill(store, Tree()), true);
    benchmark::DoNotOptimize(filled);
    return store;
}

void CoreKitWrite(State& state)
{
    CPropertyStore& store = Store();
    for (auto _ : state) {
        CMemoryStream stream(4096, 65536);
        store.WriteStream(stream);
        benchmark::DoNotOptimize(stream.GetMemoryBufferPointer());
    }
    CountValues(state);
}

// Reading leaves a store packed until it is looked at; the others have every value ready.
int LookAtEach(CPropertyStore& store)
{
    int types = 0;
    for (int i = 0, count = store.GetPropertyStoreValueCount(); i < count; ++i)
        types += store.GetPropertyStoreValueType(i);
    for (int i = 0, count = store.GetPropertyStoreCount(); i < count; ++i) {
        CPropertyStore nested = store.GetPropertyStore(i);
        types += LookAtEach(nested);
    }
    return types;
}

void CoreKitRead(State& state)
{
    CMemoryStream written(4096, 65536);
    Store().WriteStream(written);
    for (auto _ : state) {
        CMemoryStream stream(written.GetMemoryBufferPointer(), int(written.GetSize()));
        CPropertyStore store;
        store.ReadStream(stream);
        benchmark::DoNotOptimize(LookAtEach(store));
    }
    CountValues(state);
}

void CoreKitLookUp(State& state)
{
    CPropertyStore& store = Store();
    LookUpAll(state, [&](const workload::SettingPath& path) {
        return store.GetPropertyStore(path.section.c_str())
                   .GetPropertyStore(path.child.c_str())
                   .GetPropertyStoreValueType(path.name.c_str()) != ePSNone;
    });
}

// Runs a measure while the process has a second thread, so that locks and counts are meant for others, too.
template <void (*measure)(State&)>
void WithThread(State& state)
{
    std::binary_semaphore end(0);
    std::thread other([&] { end.acquire(); });
    measure(state);
    end.release();
    other.join();
}

// --- RapidJSON

void Fill(rapidjson::Value& object, const Section& section, rapidjson::Document::AllocatorType& memory)
{
    object.SetObject();
    for (const Setting& v : section.values) {
        rapidjson::Value value;
        switch (v.kind) {
        case Setting::Int:
            value.SetInt64(v.number);
            break;
        case Setting::Bool:
            value.SetBool(v.number & 1);
            break;
        case Setting::Real:
            value.SetDouble(v.real);
            break;
        case Setting::Text:
            value.SetString(workload::utf8(v.text).c_str(), memory);
            break;
        }
        object.AddMember(rapidjson::Value(v.name.c_str(), memory), value, memory);
    }
    for (const Section& child : section.children) {
        rapidjson::Value nested;
        Fill(nested, child, memory);
        object.AddMember(rapidjson::Value(child.name.c_str(), memory), nested, memory);
    }
}

struct RapidTree {
    rapidjson::Document document;
    RapidTree() { Fill(document, Tree(), document.GetAllocator()); }
};

void RapidWrite(State& state)
{
    const RapidTree tree;
    for (auto _ : state) {
        rapidjson::StringBuffer buffer;
        rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
        tree.document.Accept(writer);
        benchmark::DoNotOptimize(buffer.GetString());
    }
    CountValues(state);
}

void RapidRead(State& state)
{
    const RapidTree tree;
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    tree.document.Accept(writer);
    for (auto _ : state) {
        rapidjson::Document document;
        document.Parse(buffer.GetString(), buffer.GetSize());
        benchmark::DoNotOptimize(document.MemberCount());
    }
    CountValues(state);
}

// In the text itself, which is used up: so each round takes a copy of it.
void RapidReadInPlace(State& state)
{
    const RapidTree tree;
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    tree.document.Accept(writer);
    const std::vector<char> text(buffer.GetString(), buffer.GetString() + buffer.GetSize() + 1);
    std::vector<char> used(text.size());
    for (auto _ : state) {
        std::copy(text.begin(), text.end(), used.begin());
        rapidjson::Document document;
        document.ParseInsitu(used.data());
        benchmark::DoNotOptimize(document.MemberCount());
    }
    CountValues(state);
}

void RapidLookUp(State& state)
{
    const RapidTree tree;
    LookUpAll(state, [&](const workload::SettingPath& path) {
        const auto& section = tree.document.FindMember(path.section.c_str())->value;
        const auto& child = section.FindMember(path.child.c_str())->value;
        return child.FindMember(path.name.c_str()) != child.MemberEnd();
    });
}

// --- jansson

json_t* JanssonTree(const Section& section)
{
    json_t* object = json_object();
    for (const Setting& v : section.values) {
        json_t* value = v.kind == Setting::Int    ? json_integer(v.number)
                        : v.kind == Setting::Bool ? json_boolean(v.number & 1)
                        : v.kind == Setting::Real ? json_real(v.real)
                                                  : json_string(workload::utf8(v.text).c_str());
        json_object_set_new(object, v.name.c_str(), value);
    }
    for (const Section& child : section.children)
        json_object_set_new(object, child.name.c_str(), JanssonTree(child));
    return object;
}

void JanssonLookUp(State& state)
{
    json_t* tree = JanssonTree(Tree());
    LookUpAll(state, [&](const workload::SettingPath& path) {
        const json_t* section = json_object_get(tree, path.section.c_str());
        return json_object_get(json_object_get(section, path.child.c_str()), path.name.c_str()) != nullptr;
    });
    json_decref(tree);
}

// --- Qt CBOR

QVariantMap QtTree(const Section& section)
{
    QVariantMap map;
    for (const Setting& v : section.values) {
        QVariant& value = map[QString::fromStdString(v.name)];
        switch (v.kind) {
        case Setting::Int:
            value = qlonglong(v.number);
            break;
        case Setting::Bool:
            value = bool(v.number & 1);
            break;
        case Setting::Real:
            value = v.real;
            break;
        case Setting::Text:
            value = QString::fromStdU16String(v.text);
            break;
        }
    }
    for (const Section& child : section.children) map[QString::fromStdString(child.name)] = QtTree(child);
    return map;
}

void QtWrite(State& state)
{
    const QCborValue tree = QCborMap::fromVariantMap(QtTree(Tree()));
    for (auto _ : state) benchmark::DoNotOptimize(tree.toCbor().size());
    CountValues(state);
}

void QtRead(State& state)
{
    const QByteArray bytes = QCborValue(QCborMap::fromVariantMap(QtTree(Tree()))).toCbor();
    for (auto _ : state) benchmark::DoNotOptimize(QCborValue::fromCbor(bytes).isMap());
    CountValues(state);
}

// --- one store of 10,000 names

void CoreKitGet(State& state)
{
    CPropertyStore store;
    std::vector<std::string> names;
    for (int i = 0; i < 10000; ++i) {
        names.push_back("Setting " + std::to_string(i));
        store.SetValue(names.back().c_str(), i);
    }
    for (auto _ : state) {
        int value = 0;
        for (const std::string& name : names) benchmark::DoNotOptimize(store.GetValue(name.c_str(), value));
    }
    state.SetItemsProcessed(std::int64_t(state.iterations()) * std::int64_t(names.size()));
}

void JanssonGet(State& state)
{
    json_t* object = json_object();
    std::vector<std::string> names;
    for (int i = 0; i < 10000; ++i) {
        names.push_back("Setting " + std::to_string(i));
        json_object_set_new(object, names.back().c_str(), json_integer(i));
    }
    for (auto _ : state)
        for (const std::string& name : names) benchmark::DoNotOptimize(json_object_get(object, name.c_str()));
    json_decref(object);
    state.SetItemsProcessed(std::int64_t(state.iterations()) * std::int64_t(names.size()));
}

} // namespace

BENCHMARK(CoreKitWrite)->Name("settings/serialise/corekit");
BENCHMARK(RapidWrite)->Name("settings/serialise/rapidjson");
BENCHMARK(QtWrite)->Name("settings/serialise/qt6_cbor");
BENCHMARK(CoreKitRead)->Name("settings/deserialise/corekit");
BENCHMARK(RapidRead)->Name("settings/deserialise/rapidjson");
BENCHMARK(RapidReadInPlace)->Name("settings/deserialise/rapidjson_in_place");
BENCHMARK(QtRead)->Name("settings/deserialise/qt6_cbor");
BENCHMARK(CoreKitLookUp)->Name("settings/lookup/corekit");
BENCHMARK(RapidLookUp)->Name("settings/lookup/rapidjson");
BENCHMARK(JanssonLookUp)->Name("settings/lookup/jansson");
BENCHMARK(CoreKitGet)->Name("settings/lookup_flat/corekit");
BENCHMARK(JanssonGet)->Name("settings/lookup_flat/jansson");
// From here on the process has had more than one thread.
BENCHMARK(WithThread<CoreKitLookUp>)->Name("settings/lookup_second_thread/corekit");
BENCHMARK(WithThread<RapidLookUp>)->Name("settings/lookup_second_thread/rapidjson");
BENCHMARK(WithThread<JanssonLookUp>)->Name("settings/lookup_second_thread/jansson");
BENCHMARK_MAIN();
