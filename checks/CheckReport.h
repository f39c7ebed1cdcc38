#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace morvane {

/// What is wrong with model files, for a reader or for a program.
class CheckReport {
 public:
  enum class Form {
    Lines,  ///< those of the generators, and one behind each file that sums them up
    Json    ///< one array with an object for each file
  };

  explicit CheckReport(Form form) : form(form) {}

  /// Checks the files and reports in their order. True if none has an error; a file that can't be
  /// read is one.
  bool Write(const std::vector<std::string>& files, std::ostream& out) const;

 private:
  Form form;
};

}  // namespace morvane
