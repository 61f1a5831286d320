// Devanagari and Bengali as other programs write them, turned into the private letters and the order that our
// keyboards type and our shaping expects.
#pragma once

#include <string>
#include <string_view>

// Devanagari: the conjuncts k-ss, j-ny, t-r and sh-r become letters of their own. Bengali: so do some
// letters; the vowel signs e and ai become the ones that are stored behind their cluster, or stand in front
// of the few letters that the shaping does not know as consonants; a blank before a word becomes the word
// separator, by which a sign knows that it begins a word.
std::u16string StoredIndic(std::u16string_view text);
