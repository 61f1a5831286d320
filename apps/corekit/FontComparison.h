// How well a glyph font writes: each word through our own shaping, laid over the same word as the platform
// shapes it.
#pragma once

#include <string>
#include <vector>

struct WordLikeness {
    std::u16string word;
    double overlap = 0; // shared ink, as a part of the ink of the word that has more
};

// The words of the texts, each once, the least alike first. `glyphFont` must be registered; both faces known.
// Throws std::runtime_error if a face is missing.
std::vector<WordLikeness> CompareWords(const std::vector<std::u16string>& texts, const std::string& glyphFont,
                                       const std::string& baseFont);
// The words below each other, ours on the left, the platform's on the right.
void SaveWordPairs(const std::vector<WordLikeness>& words, const std::string& glyphFont,
                   const std::string& baseFont, const std::string& path);
