#pragma once

#include <functional>
#include <span>
#include <string_view>

#include "coreapi/Vekproperties.h"

/// Receives or supplies the saved form of an object: one value per stored property, by name.
class IVekStateWriter {
 public:
  virtual ~IVekStateWriter() = default;
  virtual void WriteProperty(const PropertyRow& row, const PropertyValue& value) = 0;
};

class IVekStateReader {
 public:
  virtual ~IVekStateReader() = default;

  /// Hands over every saved value in the order of the saved form. `assign` stores one property through its
  /// setter.
  using Assign = std::function<void(const PropertyRow&, const PropertyValue&)>;
  virtual void ReadProperties(const Assign& assign) = 0;
};

/// Persistence base: an object whose published properties are its saved form.
class VEK_API TLumXMLObject {
 public:
  virtual ~TLumXMLObject();

  /// Every property row, inherited ones first, each class's in publishing order.
  virtual std::vector<const PropertyRow*> PropertyRows() const = 0;

  /// The row of that name without regard to case, or null.
  const PropertyRow* FindProperty(std::string_view name) const;

  void WriteState(IVekStateWriter& writer) const;
  void ReadState(IVekStateReader& reader);
};
