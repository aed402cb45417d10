#pragma once

#include <string_view>

/// A named object of the project, found by name and object type ("FileSetObject").
class IVekProjectObject {
 public:
  virtual ~IVekProjectObject() = default;
};

class IVekProjectObjectAPI {
 public:
  virtual ~IVekProjectObjectAPI() = default;

  /// The object of that name without regard to case and of that type, or null.
  virtual IVekProjectObject* FindObject(std::string_view name, std::string_view objectType) = 0;
};
