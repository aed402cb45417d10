#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "base/DateTime.h"
#include "base/Text.h"
#include "base/WideString.h"
#include "base/WordBool.h"
#include "vekcoreapi_export.h"

/// Published properties. A class publishes a property with one row of a table:
///
///   static constexpr PropertyRow kPublished[] = {
///       Published<&TLogic::FileSpec, &TLogic::SetFileSpec>("FileSpec"),  // getter and setter
///       Published<&TLogic::FileName>("FileName", TextRole::File),        // a plain field that names a file
///       PublishedTruth<&TLogic::FailIfNoFile>("FailIfNoFile"),           // stores changes of its truth only
///       Published<&TLogic::FileCount>("FileCount"),                      // a getter alone: read-only
///       Published<&TLogic::ReturnCode>("ReturnCode").NotStored(),        // never written to the project
///       Published<&TLogic::Date>("Date").Varies(),                       // its default is not a fixed one
///       Published<&TLogic::Limit>("Limit").Means("The highest one"),     // for the reference
///   };
///
/// The row feeds loading, saving, scripts, pages, `describe` and the generated reference.

class TLumXMLObject;

enum class PropertyType {
  ByteString,
  WideString,
  WordBool,
  Boolean,
  Integer,
  Cardinal,
  Enumeration,
  Set,
  StringList,
  DateTime
};

inline constexpr std::string_view kPropertyTypeNames[] = {
    "ByteString", "WideString",  "WordBool", "Boolean",    "Integer",
    "Cardinal",   "Enumeration", "Set",      "StringList", "DateTime"};
constexpr std::string_view PropertyTypeName(PropertyType type) {
  return kPropertyTypeNames[static_cast<size_t>(type)];
}

/// What a text stands for; of a string list, what each of its lines does.
enum class TextRole {
  Plain,
  File,
  Folder,
  Wildcard,  // the path of a file, which may hold wildcards
  Variable,  // the name of one
  FileSet,   // likewise
  Script,
};

VEK_API std::string_view TextRoleName(TextRole role);

/// Whether a text of that role names a place on the disk.
constexpr bool NamesPath(TextRole role) {
  return role == TextRole::File || role == TextRole::Folder || role == TextRole::Wildcard;
}

/// A property's value in flight. An enumeration travels as its ordinal, a set as its bits.
using PropertyValue = std::variant<std::string, bool, int64_t, TDateTime, StringList>;

/// An enumeration as the project file and scripts see it: its name and the names of its values by ordinal.
struct EnumType {
  std::string_view name;
  std::span<const std::string_view> values;
};

template <size_t N>
struct EnumNames {
  std::string_view name;
  std::array<std::string_view, N> values;
};

/// Gives an enumeration its names: specialise in the header that declares it, for example
///   template <> inline constexpr auto kEnumNames<TColour> = Names("TColour", "cRed", "cGreen");
template <class E>
inline constexpr int kEnumNames = 0;

template <class... Values>
consteval EnumNames<sizeof...(Values)> Names(std::string_view name, Values... values) {
  return {name, {std::string_view(values)...}};
}

/// A set over an enumeration, one bit per ordinal.
template <class E>
class SetOf {
 public:
  constexpr SetOf() = default;
  constexpr SetOf(std::initializer_list<E> members) {
    for (E member : members) bits_ |= Bit(member);
  }
  static constexpr SetOf FromBits(uint32_t bits) {
    SetOf result;
    result.bits_ = bits;
    return result;
  }
  constexpr bool Has(E member) const { return (bits_ & Bit(member)) != 0; }
  constexpr uint32_t Bits() const { return bits_; }
  friend constexpr bool operator==(SetOf, SetOf) = default;

 private:
  static constexpr uint32_t Bit(E member) { return uint32_t{1} << static_cast<unsigned>(member); }
  uint32_t bits_ = 0;
};

/// One row of a property table; see the top of this file.
struct PropertyRow {
  std::string_view name;
  PropertyType type = PropertyType::ByteString;
  PropertyValue (*get)(const TLumXMLObject&) = nullptr;
  void (*set)(TLumXMLObject&, const PropertyValue&) = nullptr;  // null: read-only
  EnumType (*enumType)() = nullptr;                             // of an enumeration or a set
  bool published = true;                                        // false: a run-time result, for scripts only
  bool stored = true;
  bool readOnly = true;  // as `set` says, for constant expressions
  TextRole role = TextRole::Plain;
  bool varies = false;            // the default is not the same every time
  std::string_view meaning = {};  // where the class has no help text, or one that says too little

  consteval PropertyRow NotStored() const {
    PropertyRow row = *this;
    row.stored = false;
    return row;
  }
  consteval PropertyRow Varies() const {
    PropertyRow row = *this;
    row.varies = true;
    return row;
  }
  consteval PropertyRow Means(std::string_view text) const {
    PropertyRow row = *this;
    row.meaning = text;
    return row;
  }

  constexpr bool IsText() const {
    return type == PropertyType::ByteString || type == PropertyType::WideString ||
           type == PropertyType::StringList;
  }

  /// The type as property editors name it: an enumeration or set goes by its own name.
  constexpr std::string_view TypeName() const {
    const bool hasOwn = type == PropertyType::Enumeration || type == PropertyType::Set;
    return hasOwn ? enumType().name : PropertyTypeName(type);
  }
};

/// The text of a value as the project file holds it. String lists have none of their own (they are lists of
/// lines); the text of one is its lines joined with CR LF.
VEK_API std::string PropertyToText(const PropertyRow& row, const PropertyValue& value);

/// Reads that text; nothing when it does not fit the property's type.
VEK_API std::optional<PropertyValue> PropertyFromText(const PropertyRow& row, std::string_view text);

/// "True or False", "a whole number from 0 to 4294967295", "one of toStart, toEnd": what would have fitted.
VEK_API std::string DescribeExpectedText(const PropertyRow& row);

/// "True" or "False", also -1, 1 and 0, in any case.
VEK_API std::optional<bool> ParseBoolean(std::string_view text);
inline std::string_view BooleanText(bool value) { return value ? "True" : "False"; }

namespace property_detail {

template <class T>
inline constexpr bool kAlwaysFalse = false;

template <class E>
constexpr EnumType EnumTypeOf() {
  return {kEnumNames<E>.name, kEnumNames<E>.values};
}

/// How one C++ type travels as a PropertyValue.
template <class T>
struct Traits {
  static_assert(std::is_enum_v<T>,
                "a property of this type cannot be published: use std::string, WideString, WordBool, bool, "
                "int32_t, uint32_t, an enumeration, SetOf<enumeration>, StringList or TDateTime");
  static_assert(!std::is_same_v<decltype(kEnumNames<T>), const int>,
                "give this enumeration its names: specialise kEnumNames for it");
  static constexpr PropertyType kType = PropertyType::Enumeration;
  static constexpr auto kEnum = &EnumTypeOf<T>;
  static PropertyValue ToValue(T value) { return static_cast<int64_t>(value); }
  static T FromValue(const PropertyValue& value) { return static_cast<T>(std::get<int64_t>(value)); }
};

template <class T, PropertyType Type, class Carrier>
struct PlainTraits {
  static constexpr PropertyType kType = Type;
  static constexpr EnumType (*kEnum)() = nullptr;
  static PropertyValue ToValue(const T& value) { return static_cast<Carrier>(value); }
  static T FromValue(const PropertyValue& value) { return static_cast<T>(std::get<Carrier>(value)); }
};

template <>
struct Traits<std::string> : PlainTraits<std::string, PropertyType::ByteString, std::string> {};
template <>
struct Traits<WideString> : PlainTraits<WideString, PropertyType::WideString, std::string> {};
template <>
struct Traits<WordBool> : PlainTraits<WordBool, PropertyType::WordBool, bool> {};
template <>
struct Traits<bool> : PlainTraits<bool, PropertyType::Boolean, bool> {};
template <>
struct Traits<int32_t> : PlainTraits<int32_t, PropertyType::Integer, int64_t> {};
template <>
struct Traits<uint32_t> : PlainTraits<uint32_t, PropertyType::Cardinal, int64_t> {};
template <>
struct Traits<TDateTime> : PlainTraits<TDateTime, PropertyType::DateTime, TDateTime> {};
template <>
struct Traits<StringList> : PlainTraits<StringList, PropertyType::StringList, StringList> {};

template <class E>
struct Traits<SetOf<E>> {
  static constexpr PropertyType kType = PropertyType::Set;
  static constexpr auto kEnum = &EnumTypeOf<E>;
  static PropertyValue ToValue(SetOf<E> value) { return static_cast<int64_t>(value.Bits()); }
  static SetOf<E> FromValue(const PropertyValue& value) {
    return SetOf<E>::FromBits(static_cast<uint32_t>(std::get<int64_t>(value)));
  }
};

/// Class and value type of a data member or a getter.
template <class M>
struct MemberOf {
  static_assert(kAlwaysFalse<M>,
                "a property row takes a data member, or a const getter and optionally a setter with one "
                "parameter, all of the action's own class");
};
template <class C, class T>
struct MemberOf<T C::*> {
  using Class = C;
  using Value = T;
};
template <class C, class R>
struct MemberOf<R (C::*)() const> {
  using Class = C;
  using Value = std::remove_cvref_t<R>;
};

template <auto Getter>
PropertyValue Get(const TLumXMLObject& object) {
  using Member = MemberOf<decltype(Getter)>;
  const auto& self = static_cast<const typename Member::Class&>(object);
  if constexpr (std::is_member_object_pointer_v<decltype(Getter)>) {
    return Traits<typename Member::Value>::ToValue(self.*Getter);
  } else {
    return Traits<typename Member::Value>::ToValue((self.*Getter)());
  }
}

template <auto Getter, auto Setter>
void Set(TLumXMLObject& object, const PropertyValue& value) {
  using Member = MemberOf<decltype(Getter)>;
  auto& self = static_cast<typename Member::Class&>(object);
  if constexpr (std::is_member_object_pointer_v<decltype(Setter)>) {
    self.*Setter = Traits<typename Member::Value>::FromValue(value);
  } else {
    (self.*Setter)(Traits<typename Member::Value>::FromValue(value));
  }
}

/// Stores a value of another truth; one of the same truth keeps the bits that it came with.
template <auto Field>
void SetTruth(TLumXMLObject& object, const PropertyValue& value) {
  if (std::get<bool>(Get<Field>(object)) != std::get<bool>(value)) Set<Field, Field>(object, value);
}

template <auto Getter>
consteval PropertyRow ReadOnlyRow(std::string_view name, TextRole role = TextRole::Plain) {
  using Value = Traits<typename MemberOf<decltype(Getter)>::Value>;
  const PropertyRow row{
      .name = name, .type = Value::kType, .get = &Get<Getter>, .enumType = Value::kEnum, .role = role};
  if (role != TextRole::Plain && !row.IsText()) throw "only a text has a role";
  return row;
}

}  // namespace property_detail

/// A property read through a getter or field and written through a setter.
template <auto Getter, auto Setter>
consteval PropertyRow Published(std::string_view name, TextRole role = TextRole::Plain) {
  PropertyRow row = property_detail::ReadOnlyRow<Getter>(name, role);
  row.set = &property_detail::Set<Getter, Setter>;
  row.readOnly = false;
  return row;
}

/// A plain field, or a getter without a setter (a read-only property, which is not stored).
template <auto Member>
consteval PropertyRow Published(std::string_view name, TextRole role = TextRole::Plain) {
  if constexpr (std::is_member_object_pointer_v<decltype(Member)>) {
    return Published<Member, Member>(name, role);
  } else {
    return property_detail::ReadOnlyRow<Member>(name, role).NotStored();
  }
}

/// A field that stores only a change of its truth value: true keeps the bits that it came with.
template <auto Field>
consteval PropertyRow PublishedTruth(std::string_view name) {
  PropertyRow row = Published<Field>(name);
  if (row.type != PropertyType::WordBool && row.type != PropertyType::Boolean)
    throw "only a boolean is a truth value";
  row.set = &property_detail::SetTruth<Field>;
  return row;
}

/// The rows that several classes publish, and behind them those of one of these classes.
template <class Shared, class... Rows>
consteval auto Extended(const Shared& shared, Rows... own) {
  std::array<PropertyRow, sizeof(Shared) / sizeof(PropertyRow) + sizeof...(Rows)> rows;
  auto next = std::ranges::copy(shared, rows.begin()).out;
  ((*next++ = own), ...);
  return rows;
}

/// A result of the last run: scripts read it, the project never holds it.
template <auto Getter>
consteval PropertyRow RunTime(std::string_view name) {
  PropertyRow row = property_detail::ReadOnlyRow<Getter>(name).NotStored();
  row.published = false;
  return row;
}
