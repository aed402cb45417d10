#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// What is wrong with a text of the registry; the line counts from 1.
struct RegistryFault {
  size_t line;
  std::string reason;
};

/// A piece of such a text: mostly a line, several where a value goes on.
struct RegistryPiece {
  enum class Kind { Other, Key, RemovedKey, Value };

  Kind kind = Kind::Other;          // Other: a comment or an empty line
  std::string_view raw;             // with its line break
  std::string name;                 // of the value, or the path of the key with its root
  size_t value = 0, valueSize = 0;  // where the value stands in `raw`
};

/// Takes a text of the registry apart, and tells what stands where; all of `raw` together is the text.
class RegistryScanner {
 public:
  explicit RegistryScanner(std::string_view text, size_t firstLine = 1) : rest_(text), line_(firstLine) {}

  /// False at the end, and at a fault.
  bool Next(RegistryPiece& piece);
  const std::optional<RegistryFault>& Fault() const { return fault_; }

 private:
  bool Key(RegistryPiece& piece, std::string_view line);
  bool Value(RegistryPiece& piece, size_t start);
  bool Finish(RegistryPiece& piece, size_t size);
  bool Fail(std::string_view reason);

  std::string_view rest_;
  size_t line_;  // of where the rest begins
  bool hasKey_ = false;
  std::optional<RegistryFault> fault_;
};
