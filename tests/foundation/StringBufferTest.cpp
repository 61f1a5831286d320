#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "TextFixture.h"

namespace {

// Opens the buffer operations that derived classes use.
template <class Text>
struct Open : Text {
    using Text::AllocBeforeWrite;
    using Text::AllocBuffer;
    using Text::AllocCopy;
    using Text::ConcatCopy;
    using Text::ConcatInPlace;
    using Text::CopyBeforeWrite;
    using Text::Init;
    using Text::Release;
    using Text::SafeStrlen;

    Open() = default;
    explicit Open(const Text& text) : Text(text) {}
};

template <class T>
class SharedBuffer : public TextFixture<T> {
protected:
    using String = T;
    using Char = typename TextFixture<T>::Char;

    static void ExpectHeader(const String& text, int refs, int length, int room)
    {
        EXPECT_EQ(text.GetData()->nRefs, refs);
        EXPECT_EQ(text.GetLength(), length);
        EXPECT_EQ(text.GetAllocLength(), room);
        EXPECT_EQ(static_cast<const Char*>(text)[length], Char{});
    }
    static void ExpectEmptyBuffer(const String& text) { EXPECT_EQ(text.GetData(), String().GetData()); }
};
using Both = testing::Types<StringA, StringW>;
TYPED_TEST_SUITE(SharedBuffer, Both);

TYPED_TEST(SharedBuffer, EmptyStringsShareOneBufferThatNeverChanges)
{
    using Text = typename TestFixture::String;
    using Ch = typename TestFixture::Char;
    const Ch nothing[1] = {};
    Text locked;
    EXPECT_EQ(locked.LockBuffer(), static_cast<const Ch*>(Text()));
    locked.UnlockBuffer();
    Text kept;
    kept.SetAt(0, 'x');
    kept.ReleaseBuffer(7);
    kept.MakeReverse();
    kept += static_cast<const Ch*>(nullptr);
    for (const Text& text :
         {Text(nothing), Text(static_cast<const Ch*>(nullptr)), Text('x', 0), Text('x', -4), Text(nothing, 0),
          Text(Text()), this->Make("abc").Left(0), this->Make("abc").Right(-1), this->Make("abc").Mid(3),
          this->Make("abc").Mid(9, 2), kept, locked}) {
        this->ExpectEmptyBuffer(text);
        this->ExpectHeader(text, -1, 0, 0);
    }
    Open<Text> emptied(this->Make("abc"));
    emptied.Empty();
    this->ExpectEmptyBuffer(emptied);
    emptied.AllocBuffer(0);
    this->ExpectEmptyBuffer(emptied);
}

TYPED_TEST(SharedBuffer, CopiesShareUntilOneIsWritten)
{
    using Text = typename TestFixture::String;
    const Text source = this->Make("abc");
    Text copy(source), assigned;
    assigned = copy;
    assigned = *&assigned;
    assigned = source;
    EXPECT_EQ(copy.GetData(), source.GetData());
    this->ExpectHeader(source, 3, 3, 3);
    copy.UnlockBuffer(); // which it is already
    this->ExpectHeader(source, 3, 3, 3);
    copy.SetAt(1, 'x');
    EXPECT_EQ(this->Ascii(copy), "axc");
    EXPECT_EQ(this->Ascii(source), "abc");
    assigned.Empty();
    this->ExpectHeader(source, 1, 3, 3);

    const Text whole = source.Left(99);
    EXPECT_NE(whole.GetData(), source.GetData());
    EXPECT_EQ(whole, source);
    this->ExpectHeader(source, 1, 3, 3);
}

TYPED_TEST(SharedBuffer, LockedBufferIsKeptByAssignmentAndNeverShared)
{
    using Text = typename TestFixture::String;
    Text locked = this->Make("abcdef");
    Text sharer(locked);
    auto* characters = locked.LockBuffer();
    EXPECT_NE(characters, static_cast<const typename TestFixture::Char*>(sharer));
    this->ExpectHeader(locked, -1, 6, 6);

    const Text copy(locked);
    this->ExpectHeader(copy, 1, 6, 6);
    sharer = locked;
    this->ExpectHeader(sharer, 1, 6, 6);
    locked = this->Make("xy");
    EXPECT_EQ(this->Ascii(locked), "xy");
    this->ExpectHeader(locked, -1, 2, 6);
    locked = Text();
    locked.Empty();
    this->ExpectHeader(locked, -1, 0, 6);
    EXPECT_EQ(static_cast<const typename TestFixture::Char*>(locked), characters);

    locked.UnlockBuffer();
    const Text shares(locked);
    EXPECT_EQ(shares.GetData(), locked.GetData());
}

TYPED_TEST(SharedBuffer, AppendsAllocateExactlyAndOnlyWhenTheyMust)
{
    using Text = typename TestFixture::String;
    Text text = this->Make("ab");
    text += this->Make("cde");
    this->ExpectHeader(text, 1, 5, 5);
    auto* room = text.GetBuffer(8);
    text.ReleaseBuffer();
    this->ExpectHeader(text, 1, 5, 8);
    text += this->Make("fgh");
    EXPECT_EQ(static_cast<const typename TestFixture::Char*>(text), room);
    text += text;
    EXPECT_EQ(this->Ascii(text), "abcdefghabcdefgh");
    this->ExpectHeader(text, 1, 16, 16);

    // An append of nothing to a shared string still unshares it.
    const Text sharer(text);
    text += Text();
    this->ExpectHeader(sharer, 1, 16, 16);
    this->ExpectHeader(text, 1, 16, 16);

    // A shared buffer with room but no text must not be released under the other string's feet.
    Text bare = this->Make("abc");
    bare.GetBufferSetLength(0);
    Text twin(bare);
    twin += Text();
    twin = this->Make("x");
    bare += 'y';
    EXPECT_EQ(this->Ascii(bare), "y");
}

TYPED_TEST(SharedBuffer, GetBufferKeepsTextAndReleaseStaysInside)
{
    using Text = typename TestFixture::String;
    Text text = this->Make("abcdef");
    const Text sharer(text);
    auto* own = text.GetBuffer(3);
    this->ExpectHeader(text, 1, 6, 6);
    own[4] = 0;
    text.ReleaseBuffer();
    EXPECT_EQ(this->Ascii(text), "abcd");
    EXPECT_EQ(this->Ascii(sharer), "abcdef");
    text.FreeExtra();
    this->ExpectHeader(text, 1, 4, 4);

    text.ReleaseBuffer(400);
    this->ExpectHeader(text, 1, 4, 4);
    text.GetBufferSetLength(2);
    this->ExpectHeader(text, 1, 2, 4);
    text.ReleaseBuffer(-7);
    this->ExpectHeader(text, 1, 0, 4);
    text.FreeExtra();
    this->ExpectEmptyBuffer(text);
}

TYPED_TEST(SharedBuffer, DerivedClassesBuildExactBuffers)
{
    using Text = typename TestFixture::String;
    using Ch = typename TestFixture::Char;
    Open<Text> source(this->Make("abcdef")), part;
    source.AllocCopy(part, 2, 3, 4);
    this->ExpectHeader(part, 1, 6, 6);
    EXPECT_EQ(this->Ascii(part).substr(0, 2), "de");
    part.Release();
    source.AllocCopy(part, 0, 3, 0);
    this->ExpectEmptyBuffer(part);

    part.ConcatCopy(2, static_cast<const Ch*>(source), 1, static_cast<const Ch*>(source) + 5);
    EXPECT_EQ(this->Ascii(part), "abf");
    part.GetBuffer(5);
    const auto* data = part.GetData();
    part.AllocBeforeWrite(4);
    EXPECT_EQ(part.GetData(), data);
    const Text sharer(part);
    part.CopyBeforeWrite();
    EXPECT_NE(part.GetData(), data);
    this->ExpectHeader(part, 1, 3, 3);
    part.AllocBeforeWrite(9);
    this->ExpectHeader(part, 1, 9, 9);
    EXPECT_EQ(Open<Text>::SafeStrlen(nullptr), 0);
}

} // namespace
