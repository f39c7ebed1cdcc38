#include "platform/qt/QtProgressBoxes.h"

#include <QPointer>
#include <QProgressDialog>

#include "drawing/qt/QtText.h"
#include "platform/ModalLoop.h"
#include "platform/qt/DialogParent.h"

namespace morvane {

namespace {

constexpr int kSteps = 1000;

class QtProgressBox : public ProgressBox {
 public:
  explicit QtProgressBox(const std::string& text) : dialog(new QProgressDialog(DialogParent())) {
    dialog->setWindowModality(Qt::ApplicationModal);
    dialog->setLabelText(ToQString(text));
    dialog->setRange(0, kSteps);
    dialog->setAutoClose(false);
    dialog->setAutoReset(false);
    dialog->setValue(0);
  }
  ~QtProgressBox() override { delete dialog; }
  QtProgressBox(const QtProgressBox&) = delete;
  QtProgressBox& operator=(const QtProgressBox&) = delete;

  bool Show(double part) override {
    // Handles events, in which the window above may take the dialog along.
    if (dialog != nullptr) dialog->setValue(static_cast<int>(part * kSteps));
    return dialog != nullptr && !dialog->wasCanceled();
  }

 private:
  const ModalLoop loop;
  QPointer<QProgressDialog> dialog;
};

}  // namespace

std::unique_ptr<ProgressBox> QtProgressBoxes::Open(const std::string& text) {
  return std::make_unique<QtProgressBox>(text);
}

}  // namespace morvane
