// What all three string classes do.
#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "corekit/framework/String.h"
#include "tests/support/CaseRows.h"
#include "TextFixture.h"

#include <climits>
#include <functional>
#include <map>
#include <thread>
#include <vector>

namespace {

template <class T>
class AnyString : public TextFixture<T> {
};
using All = testing::Types<StringA, StringW, CString>;
TYPED_TEST_SUITE(AnyString, All);

TYPED_TEST(AnyString, PartsAreClampedToTheText)
{
    using Text = typename TestFixture::String;
    const Text text = this->Make("abcdef");
    const std::map<std::string, std::function<Text(CaseRow&)>> parts = {
        {"left", [&](CaseRow& row) { return text.Left(row.Number()); }},
        {"right", [&](CaseRow& row) { return text.Right(row.Number()); }},
        {"mid", [&](CaseRow& row) { return text.Mid(row.Number()); }},
        {"mid of",
         [&](CaseRow& row) {
             const int first = row.Number();
             return text.Mid(first, row.Number());
         }},
        {"including", [&](CaseRow& row) { return text.SpanIncluding(this->Make(row.Word())); }},
        {"excluding", [&](CaseRow& row) { return text.SpanExcluding(this->Make(row.Word())); }},
    };
    for (CaseRow row : CaseRows(TEST_DATA "/string_parts.tsv")) {
        const Text got = parts.at(row.Word())(row);
        EXPECT_EQ(this->Ascii(got), row.Word()) << row.Line();
    }
    EXPECT_EQ(text.FindOneOf(this->Make("xfd")), 3);
    EXPECT_EQ(text.FindOneOf(this->Make("xyz")), -1);
}

TYPED_TEST(AnyString, IndexesOutsideTouchNothing)
{
    auto text = this->Make("abc");
    for (const int index : {-1, INT_MIN, 4, INT_MAX}) {
        EXPECT_EQ(text.GetAt(index), 0);
        EXPECT_EQ(text[index], 0);
        text.SetAt(index, 'x');
        EXPECT_EQ(text.Find('c', index), -1);
        EXPECT_EQ(text.Find(this->Make("c"), index), -1);
    }
    text.SetAt(3, 'x');
    EXPECT_EQ(this->Ascii(text), "abc");
    EXPECT_EQ(text.Find('c', 3), -1);
}

TYPED_TEST(AnyString, TextFromOwnBufferIsTakenBeforeItGoes)
{
    using Text = typename TestFixture::String;
    Text text = this->Make("abcdef");
    text = this->Characters(text) + 2;
    EXPECT_EQ(this->Ascii(text), "cdef");
    {
        const Text sharer(text);
        text = this->Characters(text) + 1;
        EXPECT_EQ(this->Ascii(sharer), "cdef");
    }
    EXPECT_EQ(this->Ascii(text), "def");
    text = *&text;
    text += text;
    text += this->Characters(text) + 4;
    EXPECT_EQ(this->Ascii(text), "defdefef");
    text = this->Characters(text) + 6;
    text.Format(this->Characters(this->Make("<%s|%s>")), this->Characters(text), this->Characters(text));
    EXPECT_EQ(this->Ascii(text), "<ef|ef>");
    Text moved(std::move(text));
    moved = std::move(moved);
    EXPECT_EQ(this->Ascii(moved), "<ef|ef>");
}

TYPED_TEST(AnyString, ChangesLeaveSharersAlone)
{
    using Text = typename TestFixture::String;
    const Text source = this->Make(" \tAb1\r\n");
    Text set(source), upper(source), lower(source), reversed(source), trimmed(source);
    EXPECT_EQ(this->Characters(set), this->Characters(source));
    set.SetAt(2, 'x');
    upper.MakeUpper();
    lower.MakeLower();
    reversed.MakeReverse();
    trimmed.TrimLeft();
    trimmed.TrimRight();
    EXPECT_EQ(this->Ascii(set) + this->Ascii(upper) + this->Ascii(lower), " \txb1\r\n \tAB1\r\n \tab1\r\n");
    EXPECT_EQ(this->Ascii(reversed) + this->Ascii(trimmed), "\n\r1bA\t Ab1");
    EXPECT_EQ(this->Ascii(source), " \tAb1\r\n");
}

TYPED_TEST(AnyString, CountsHoldWhenThreadsShareABuffer)
{
    using Text = typename TestFixture::String;
    const Text source = this->Make("shared");
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&source] {
            std::vector<Text> copies;
            for (int round = 0; round < 2000; ++round) {
                Text copy(source), empty;
                copies.push_back(copy);
                empty.Empty();
                empty.ReleaseBuffer(0);
                copy += 'x';
                if (copies.size() == 50) copies.clear();
            }
        });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(this->Ascii(source), "shared");
    const auto* const characters = this->Characters(source);
    Text& alone = const_cast<Text&>(source);
    alone.SetAt(0, 'S'); // in place, for nobody else has it
    EXPECT_EQ(this->Characters(source), characters);
}

} // namespace
