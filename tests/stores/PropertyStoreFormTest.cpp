// The stream form of a property store, a form a row: what is read of it, whole and cut short anywhere, and
// written.
#include "PropertyStoreBytes.h"
#include "tests/support/TabbedCases.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

namespace {

const std::map<std::string, std::string> thrownTexts = {
    {"-", "nothing"},
    {"end", "[Memory Stream] Read past end of buffer"},
    {"corrupt", "Data is corrupt."},
};

std::string TextOf(const std::string& thrown)
{
    if (const auto known = thrownTexts.find(thrown); known != thrownTexts.end()) return known->second;
    return "Invalid object version found.  Object=[CPropertyStore], version found=" +
           thrown.substr(thrown.find(' ') + 1) + ", max supported version=1.00";
}

void AddNumber(std::string& bytes, unsigned long number, std::size_t size)
{
    for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(number >> 8 * i);
}

// Up to the end of the form or of the brackets that it is in.
std::string Bytes(std::istringstream& form)
{
    std::string bytes;
    for (std::string token; form >> token && token != ")";) {
        if (token.back() == '(') {
            const std::string inside = Bytes(form);
            for (int times = std::stoi(token); times > 0; --times) bytes += inside;
        } else if (token[0] == '"') {
            AddNumber(bytes, token.size() - 2, 2);
            for (const char c : token.substr(1, token.size() - 2)) AddNumber(bytes, static_cast<BYTE>(c), 2);
        } else if (token[0] == 'x') {
            for (std::size_t i = 1; i < token.size(); i += 2)
                bytes += static_cast<char>(std::stoi(token.substr(i, 2), nullptr, 16));
        } else {
            AddNumber(bytes, std::stoul(token, nullptr, 0), 4);
        }
    }
    return bytes;
}

std::string Hex(const std::string& bytes)
{
    constexpr char digits[] = "0123456789ABCDEF";
    std::string hex;
    for (const char c : bytes) {
        const unsigned byte = static_cast<BYTE>(c);
        hex += {digits[byte / 16], digits[byte % 16]};
    }
    return hex;
}

std::string Shown(const StringA& name)
{
    std::string shown;
    for (const char c : std::string(name))
        shown += static_cast<BYTE>(c) < 0x80 ? std::string(1, c) : "\\" + Hex({c});
    return shown;
}

std::string Holds(const CPropertyStore& store, bool withData)
{
    std::string all;
    for (int i = 0; i < store.GetPropertyStoreCount(); ++i)
        all += Shown(store.GetPropertyStoreName(i)) + "{" + Holds(store.GetPropertyStore(i), withData) + "} ";
    for (int i = 0; i < store.GetPropertyStoreValueCount(); ++i) {
        const StringA name = store.GetPropertyStoreValueName(i);
        all += Shown(name) + ":" + std::to_string(store.GetPropertyStoreValueType(i));
        CByteArray data;
        store.GetValue(name, data);
        const auto* bytes = reinterpret_cast<const char*>(data.GetData());
        if (withData) all += "=" + Hex({bytes, static_cast<std::size_t>(data.GetSize())});
        all += " ";
    }
    if (!all.empty()) all.pop_back();
    return all;
}

int Count(const CPropertyStore& store)
{
    return store.GetPropertyStoreCount() + store.GetPropertyStoreValueCount();
}

// An element is there as soon as its last byte is, and never in part.
void ExpectWholeElementsOfEachCut(const std::string& bytes, const std::string& holds)
{
    int before = 0;
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        CPropertyStore cut, again;
        EXPECT_EQ(ReadFrom(cut, bytes.substr(0, size)), TextOf("end")) << size;
        const CPropertyStore packed = cut;
        const std::string kept = Written(cut);
        EXPECT_TRUE(holds.starts_with(Holds(packed, false).c_str())) << size;
        const std::size_t end = kept.size() - (cut.GetPropertyStoreValueCount() == 0 ? 4 : 0);
        EXPECT_EQ(Count(cut) != before ? end : size, size);
        before = Count(cut);
        EXPECT_EQ(ReadFrom(again, kept), "nothing");
        EXPECT_EQ(Written(again), kept) << size;
    }
}

} // namespace

TEST(PropertyStoreForm, WhatIsReadIsWrittenAndWhatIsCutShortKeepsItsWholeElements)
{
    const auto cases = TabbedCases(TEST_DATA "/property_store_forms.tsv");
    ASSERT_GT(cases.size(), 20u);
    for (const auto& fields : cases) {
        SCOPED_TRACE(fields.at(0));
        std::istringstream form(fields.at(1));
        const std::string bytes = Bytes(form), &thrown = fields.at(2);
        const std::string holds = fields.size() > 3 ? fields[3] : "";
        CPropertyStore store;
        EXPECT_EQ(ReadFrom(store, bytes), TextOf(thrown));
        EXPECT_EQ(holds == "*" ? holds : Holds(store, true), holds);
        if (thrown != "-") continue;
        EXPECT_EQ(Written(store), bytes);
        if (bytes.size() < 2000) ExpectWholeElementsOfEachCut(bytes, Holds(store, false));
    }
}

TEST(PropertyStoreForm, ReadingAppendsAndStopsExactlyBehindTheStore)
{
    CPropertyStore source, store;
    source.SetValue("A", 2);
    store.SetValue("a", 1);
    const std::string bytes = "before" + Written(source) + std::string(50000, 'x');
    CMemoryStream stream(bytes.data(), static_cast<int>(bytes.size()));
    stream.SeekToPos(6);
    store.ReadStream(stream);
    EXPECT_EQ(stream.GetCurrentPos(), 6 + Written(source).size());
    for (const int last : {2, 1}) {
        int value = 0;
        EXPECT_TRUE(store.GetValue("a", value) && value == last);
        store.DeleteValue("a");
    }
}
