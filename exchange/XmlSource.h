#pragma once

#include <cstddef>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// An XML file that was read: its tree, and the lines where elements stand. Nothing that the file
/// refers to is read, and no entity but the five that XML itself knows is one.
class XmlSource {
 public:
  /// Takes UTF-8, UTF-16 with or without its mark, or else Windows-1252. Throws a text for the user
  /// with the line where the file is broken.
  explicit XmlSource(std::string_view bytes);

  /// The outermost element.
  pugi::xml_node Root() const { return root; }
  /// Where an element begins, counted from 1.
  int LineOf(const pugi::xml_node& element) const;
  /// The line of a reference to a document type that stands elsewhere; 0 if there is none.
  int OuterTypeLine() const { return outerTypeLine; }
  /// An element as the file might have it.
  static std::string Markup(const pugi::xml_node& element);

 private:
  int LineAt(std::size_t offset) const;
  void CheckEntities() const;
  void CheckDocumentType();

  std::string text;
  std::vector<std::size_t> breaks;  ///< where lines end
  pugi::xml_document document;
  pugi::xml_node root;
  int outerTypeLine = 0;
};

}  // namespace morvane
