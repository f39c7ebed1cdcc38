#pragma once

#include <string>
#include <vector>

#include "persistence/TextEncoding.h"

namespace morvane {

class ModelMgr;
class ModelProperties;

/// The encoding of all texts of a chart: names, texts of objects, properties.
class ChartEncoding {
 public:
  /// Works on the chart's own texts, which outlive it.
  ChartEncoding(const ModelMgr& model, ModelProperties& properties);

  TextEncoding Found() const;
  /// Puts all texts into the encoding that the chart had, new ones and copies from other charts
  /// included: Windows-1252 if it has all their letters, else UTF-8.
  EncodingChange Unify(TextEncoding former);
  void ConvertToUtf8();

 private:
  std::vector<std::string*> texts;
};

}  // namespace morvane
