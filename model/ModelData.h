#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace morvane {

class Factory;
class ModelStream;
class Shape;

/// The owning list of a chart's objects, in the order of the model text. Inside a layer the order
/// decides what paints over what.
class ModelData {
 public:
  using RecordHook = std::function<void(const Shape&)>;

  explicit ModelData(const Factory& factory) : factory(factory) {}
  ~ModelData();
  ModelData(const ModelData&) = delete;
  ModelData& operator=(const ModelData&) = delete;

  const std::vector<Shape*>& Objects() const { return objects; }
  void Append(std::unique_ptr<Shape> shape);
  /// Deletes every object, each exactly once.
  void DeleteAll();
  /// Takes the shape out of the list without deleting it; nothing if it isn't there.
  void Release(const Shape* shape);
  /// Puts a released shape back at another place.
  void Insert(std::size_t position, Shape* shape);

  void Write(ModelStream& stream) const;
  /// Reads the records up to "END DATA", unattached. Throws a text for the user; what was read so
  /// far stays in the list.
  /// `onRecord` is called with each new object while the stream stands behind the first line of its
  /// record.
  void Read(ModelStream& stream, const RecordHook& onRecord = {});
  /// Skips what stands before "BEGIN DATA", and that line. Throws a text for the user.
  static void SkipToRecords(ModelStream& stream);
  /// False while a `Read` runs and after one that failed.
  bool IsComplete() const { return complete; }

 private:
  const Factory& factory;
  std::vector<Shape*> objects;
  bool complete = true;
};

}  // namespace morvane
