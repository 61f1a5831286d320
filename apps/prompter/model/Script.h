// A script: its stories in their order, and the file they come from.
//
// A line of three dashes, or of a number sign alone, parts two stories; it belongs to the story behind it.
// What was read and not edited is written as it was read. Belongs to the user-interface thread.
#pragma once

#include "model/ScriptText.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace prompter {

// Whole lines of a text that have come in the place of others. What is behind the last line end is a line.
struct LineChange {
    std::size_t at = 0, removed = 0, added = 0; // units
    std::size_t line = 0, count = 0;            // the first of those that have gone, and their number
};

struct Story {
    std::uint64_t key = 0;  // stays the same while a story is moved or edited; never used twice
    std::u16string divider; // the line in front, as it was read; empty for three dashes
    std::u16string text;    // lines end with LF
    std::string source;     // name of the file in the news folder that it came from, else empty
    bool isSkipped = false;
    bool isEdited = false; // by the user, since it was read or came in

    // The text is this one of those that the script has seen, made by the change from that one.
    std::uint64_t version = 0, formerVersion = 0;
    LineChange change;

    // The first line that is not blank, without leading number signs; at most 80 units.
    std::u16string Title() const;
};

class Script {
public:
    Script() { SetText(u""); }

    // Replaces all stories. There is always at least one.
    void SetText(std::u16string_view text);
    // The whole, parted as it was read.
    std::u16string Text() const;

    int Count() const { return static_cast<int>(m_stories.size()); }
    const Story& At(int index) const { return m_stories[static_cast<std::size_t>(index)]; }
    int IndexOf(std::uint64_t key) const; // -1 for none

    void SetStoryText(int index, std::u16string_view text);
    // The same for one who knows what changes, in which case it costs no more than that. The lines are those
    // that come, of `change.added` units.
    void ChangeLines(int index, const LineChange& change, std::u16string_view lines);
    void SetSkipped(int index, bool skipped);
    void Move(int from, int to);
    int Insert(int index, std::u16string_view text, std::string source = {}); // returns the index
    void Remove(int index); // the last one becomes empty instead

    // A file of the news folder has come or changed. Its story is replaced, or stands at the end if there is
    // none yet. A story that the user has edited, or is editing (`beingEdited`, 0 for none), stays; the news
    // then stand behind it until KeepOnly decides. What is there already changes nothing.
    enum class News { unchanged, added, replaced, beside };
    News TakeNews(const std::string& source, std::u16string_view text, std::uint64_t beingEdited);
    // Of the stories that came from the same file this one stays.
    void KeepOnly(std::uint64_t key);

    // Counts every change of text or order, so that others see whether they are up to date.
    std::uint64_t Version() const { return m_version; }
    // What differs from the state that MarkSaved noted.
    bool IsModified() const { return m_version != m_saved; }
    void MarkSaved() { m_saved = m_version; }

private:
    void Assign(Story& story, std::u16string_view text);
    void Change(Story& story, const LineChange& change, std::u16string_view lines);

    std::vector<Story> m_stories;
    bool m_beginsWithDivider = false;
    std::uint64_t m_lastKey = 0;
    std::uint64_t m_version = 0, m_saved = 0;
};

} // namespace prompter
