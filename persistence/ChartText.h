#pragma once

#include <string>

#include "persistence/TextEncoding.h"
#include "platform/SharedText.h"

namespace morvane {

class CDocument;
class ModelStream;

/// What a document knows of the chart that it holds: its text, in and out.
class ChartText {
 public:
  virtual ~ChartText() = default;
  /// The document that holds the chart; null for a chart that no document holds.
  CDocument* GetDocument() const { return document; }
  void SetDocument(CDocument* owner) { document = owner; }
  /// The whole model text.
  virtual std::string ModelText() const = 0;
  /// The model text of a chart with nothing in it.
  virtual std::string EmptyText() const = 0;
  /// The text of the present snapshot; null before the first showing.
  virtual SharedText SnapshotText() const = 0;
  /// Reads a whole text. What was read waits, unattached and out of everybody's reach, until it is
  /// placed and shown; the chart shows what it showed. Throws a text for the user.
  virtual void Read(ModelStream& stream) = 0;
  /// Shows another whole model text, as one step that can be undone. False, with nothing changed,
  /// when the text can't be read; `reason` then says why, for the user.
  virtual bool ReplaceText(const std::string& text, std::string& reason) = 0;
  /// The encoding of the texts that the chart stores.
  virtual TextEncoding FoundEncoding() = 0;
  /// Stores all texts in UTF-8, as one step that can be undone.
  virtual void ConvertToUtf8() = 0;

 private:
  CDocument* document = nullptr;
};

}  // namespace morvane
