#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The classes of which COM objects can be made. A class identifier stands in braces:
/// "{00000000-0000-0000-0000-000000000000}".
class ComClasses {
 public:
  virtual ~ComClasses() = default;

  /// Makes an object of the class, releases it, and answers whether there was one.
  virtual bool CanCreate(std::string_view classId) = 0;

  /// The class that goes by a programmatic identifier ("Name.Class"); nothing when there is none.
  virtual std::optional<std::string> ClassIdOf(std::string_view progId) = 0;
};
