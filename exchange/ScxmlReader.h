#pragma once

#include <set>
#include <string>
#include <vector>

#include "exchange/ScxmlActions.h"
#include "exchange/ScxmlDocument.h"
#include "exchange/XmlSource.h"

namespace morvane {

/// Reads a document of SCXML, whatever prefix its namespace has, and however deep its states stand.
class ScxmlReader {
 public:
  /// Throws a text for the user if the bytes are no such document.
  static ScxmlDocument Read(std::string_view bytes);

 private:
  /// An element with the state that it belongs to.
  struct Open {
    pugi::xml_node element;
    int state;
  };

  explicit ScxmlReader(std::string_view bytes) : source(bytes) {}

  ScxmlDocument Run();
  void TakeNamespaces();
  bool IsOurs(const pugi::xml_node& element) const;
  void TakeChildren(const Open& open);
  void TakeElement(const pugi::xml_node& element, int state);
  void AddState(const pugi::xml_node& element, int parent, ScxmlState::Kind kind);
  ScxmlTransition TransitionOf(const pugi::xml_node& element, int source);
  void TakeBeginning(const pugi::xml_node& element, int state);
  void TakeText(const pugi::xml_node& element, int state, std::string ScxmlState::*text);
  void NoteSent(const ScxmlActions& actions);
  void Remark(const pugi::xml_node& element, const std::string& text, bool keep = true);

  XmlSource source;
  std::set<std::string> prefixes;  ///< of the namespace of SCXML
  std::vector<Open> open;          ///< what is still to be read
  int foreign = 0;                 ///< how many elements of other namespaces there are
  int firstForeignLine = 0;
  ScxmlDocument document;
};

}  // namespace morvane
