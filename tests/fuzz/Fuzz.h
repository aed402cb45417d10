#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/Text.h"

/// Parsers under random input. A target is a file of its own, <Name>Fuzz.cpp, which defines the two functions
/// below; FuzzMain.cpp feeds it. Another driver may take its place: with Clang, -fsanitize=fuzzer.

/// What inputs of a target are made of.
struct FuzzFormat {
  StringList seeds;  // whole inputs, run as they are and then varied
  StringList words;  // pieces that mean something in the format
  uint64_t runs;     // how many make a short test
};
FuzzFormat TargetFormat();

/// The words of a format, with '~' between them; they may hold the byte 0.
template <size_t Size>
StringList Words(const char (&words)[Size]) {
  return SplitAt({words, Size - 1}, "~");
}

/// Feeds one input to the parser. A fault ends the program: a crash, an exception that leaves, or Require.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

inline std::string_view InputText(const uint8_t* data, size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Between the fields of an input that has several: a byte that none of the formats uses.
inline constexpr std::string_view kFieldEnd = "\x1F";

/// The input's fields; at least `count`, empty where the input ends before.
StringList Fields(std::string_view input, size_t count);

/// Ends the program, with the words, when the condition does not hold.
void Require(bool condition, std::string_view words);

/// As Require, and shows both texts.
void RequireSame(std::string_view got, std::string_view wanted, std::string_view words);

/// A change takes at most so many lines away and puts so many in their place; the others stay.
void CheckOtherLines(const StringList& before, const StringList& after, ptrdiff_t most, ptrdiff_t mostNew);

/// The text as a literal of this language.
std::string Literal(std::string_view text);
