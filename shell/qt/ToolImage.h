#pragma once

#include <memory>

#include "platform/DragImages.h"
#include "platform/UseService.h"

class QLabel;

namespace morvane {

/// The icon of a drawing tool in a small window that follows the pointer.
class ToolImage : public DragImages {
 public:
  ToolImage();
  ~ToolImage() override;

  void Show(unsigned command, POINT topLeft) override;
  void Hide() override;

 private:
  std::unique_ptr<QLabel> window;
  unsigned shown = 0;
  const UseService<DragImages> use{*this};
};

}  // namespace morvane
