// How well our road writes: each word ordered, shaped and drawn by us, laid over the same word as the
// platform draws it in the same face.
#pragma once

#include <string>
#include <vector>

struct WordLikeness {
    std::u16string word;
    double overlap = 0; // shared ink, as a part of the ink of the word that has more
};

struct ComparedFaces {
    std::string glyphFont; // registered; empty for a script whose letters we draw with the face itself
    std::string base;
    bool isKerned = false; // on both sides
};

// The words of the texts, each once, the least alike first. Both faces must be known. A word is letters with
// their marks and joiners in any script; digits, punctuation and spaces part words.
std::vector<WordLikeness> CompareWords(const std::vector<std::u16string>& texts, const ComparedFaces& faces);
// The share of the words, in per cent, that overlap by at least `overlap`.
double ShareOf(const std::vector<WordLikeness>& words, double overlap);
// The first words below each other, ours on the left, the platform's on the right. Throws std::runtime_error
// if the picture cannot be written.
void SaveWordPairs(const std::vector<WordLikeness>& words, const ComparedFaces& faces,
                   const std::string& path);
