// What was probably meant by a word that isn't known.
#pragma once

#include <string>
#include <vector>

namespace hexlume {

// "; did you mean X?" with the most similar of the words, or nothing if none is similar.
std::string Suggestion(const std::string& word, const std::vector<std::string>& words);

}  // namespace hexlume
