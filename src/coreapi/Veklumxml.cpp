#include "coreapi/Veklumxml.h"

TLumXMLObject::~TLumXMLObject() = default;

const PropertyRow* TLumXMLObject::FindProperty(std::string_view name) const {
  for (const PropertyRow* row : PropertyRows()) {
    if (SameText(row->name, name)) return row;
  }
  return nullptr;
}

void TLumXMLObject::WriteState(IVekStateWriter& writer) const {
  for (const PropertyRow* row : PropertyRows()) {
    if (row->published && row->stored) writer.WriteProperty(*row, row->get(*this));
  }
}

void TLumXMLObject::ReadState(IVekStateReader& reader) {
  reader.ReadProperties(
      [this](const PropertyRow& row, const PropertyValue& value) { row.set(*this, value); });
}
