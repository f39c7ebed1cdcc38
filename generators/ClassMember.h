#pragma once

#include <functional>
#include <string>
#include <vector>

namespace morvane {

class ClassWriter;

/// An operation of a generated class.
struct ClassMember {
  enum class Access { Public, Private, Hook };

  Access access = Access::Private;
  std::vector<std::string> doc;
  std::string type;
  std::string name;
  std::string parameterType;  ///< empty: it has none
  std::string parameter;      ///< empty: its body has no use for it
  bool isConst = false;
  bool isStatic = false;
  std::function<void(ClassWriter&)> body;
};

}  // namespace morvane
