#pragma once

#include <QDialog>

class QLabel;
class QPrintPreviewWidget;
class QPrinter;
class QToolBar;

namespace morvane {

class PrintedPages;
class QtFontCache;

/// The pages as the paper gets them, one at a time or all together, with zoom, print setup and
/// printing.
class QtPrintPreview : public QDialog {
  Q_OBJECT

 public:
  /// All have to outlive the window.
  QtPrintPreview(PrintedPages& pages, QPrinter& printer, QtFontCache& fonts, QWidget* parent);

 private:
  void CreateBar();
  QAction* AddButton(const char* text, const char* icon, void (QtPrintPreview::*run)());
  void PaintPages(QPrinter* device);
  void Refresh();
  void Print();
  void SetUp();
  void GoTo(int page);
  void GoBack();
  void GoOn();
  void ToggleAll();
  void ZoomIn();
  void ZoomOut();
  void FitPage();

  PrintedPages& pages;
  QPrinter& printer;
  QtFontCache& fonts;
  QToolBar* bar;
  QPrintPreviewWidget* view;
  QLabel* position;
  QAction* print = nullptr;
  QAction* previous = nullptr;
  QAction* next = nullptr;
  QAction* all = nullptr;
  QString problem;
};

}  // namespace morvane
