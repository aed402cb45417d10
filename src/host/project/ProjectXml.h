#pragma once

#include <initializer_list>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "host/project/Project.h"
#include "host/project/SourceText.h"

/// The elements of a project file, and the faults found in them, by line. A fault is raised as EProjectFault;
/// where faults are collected, the reading goes on behind the part that it is in.
class ProjectXml {
 public:
  using Names = std::initializer_list<std::string_view>;

  /// `faults` collects them; null: the first one ends the reading.
  ProjectXml(std::string_view text, std::string_view fileName, std::vector<EProjectFault>* faults = nullptr);

  /// The one element of the document; nothing but white space stands beside it.
  pugi::xml_node Root(std::string_view name) const;

  int LineOf(pugi::xml_node node) const;
  [[noreturn]] void Fail(pugi::xml_node node, const FaultPlace& place, std::string_view message) const;

  /// What the call gives; an exception that leaves it becomes a fault of the node.
  template <class Call>
  decltype(auto) Placed(pugi::xml_node node, const FaultPlace& place, Call call) const {
    try {
      return call();
    } catch (const std::exception& error) {
      Fail(node, place, error.what());
    }
  }

  /// Reads a part of the file; false when there is a fault in it and faults are collected.
  template <class Read>
  bool ReadPart(Read read) const {
    if (!faults_) {
      read();
      return true;
    }
    try {
      read();
      return true;
    } catch (const EProjectFault& fault) {
      faults_->push_back(fault);
      return false;
    }
  }

  void CheckAttributes(pugi::xml_node element, const FaultPlace& place, Names known) const;
  std::optional<std::string> Attribute(pugi::xml_node element, const FaultPlace& place,
                                       const char* name) const;
  std::string RequiredAttribute(pugi::xml_node element, const FaultPlace& place, const char* name) const;

  /// The text of an element without child elements.
  std::string Text(pugi::xml_node element, const FaultPlace& place) const;

  /// Visits the child elements; refuses unknown ones, and text beside them.
  template <class Visit>
  void ForEachElement(pugi::xml_node parent, const FaultPlace& place, Names known, Visit visit) const {
    for (const pugi::xml_node child : parent.children()) {
      ReadPart([&] {
        if (!IsElement(child, place)) return;
        CheckName(child, place, known);
        visit(child);
      });
    }
  }

  /// False for white space; raises for other text.
  bool IsElement(pugi::xml_node node, const FaultPlace& place) const;
  void RefuseSecond(pugi::xml_node element, const FaultPlace& place) const;

 private:
  [[noreturn]] void FailAt(int line, const FaultPlace& place, std::string_view message) const;
  void CheckName(pugi::xml_node element, const FaultPlace& place, Names known) const;
  void CheckEncoding(pugi::xml_node declaration) const;
  std::string Decoded(pugi::xml_node node, const FaultPlace& place, std::string_view xml) const;

  SourceText source_;
  std::string fileName_;
  std::vector<EProjectFault>* const faults_;
  pugi::xml_document document_;
};
