#include "platform/qt/posix/QtClipboard.h"

#include <memory>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace morvane {

namespace {

QClipboard* SystemClipboard() {
  return qGuiApp != nullptr ? QGuiApplication::clipboard() : nullptr;
}

}  // namespace

QString QtClipboard::MimeTypeOf(const std::string& format) {
  QString name = QString::fromStdString(format);
  if (name.contains('/')) return name;
  return QStringLiteral("application/x-qt-windows-mime;value=\"%1\"").arg(name);
}

ClipboardError QtClipboard::Put(const std::vector<Item>& items) {
  QClipboard* clipboard = SystemClipboard();
  if (clipboard == nullptr) return ClipboardError::Open;
  auto content = std::make_unique<QMimeData>();
  for (const Item& item : items) {
    content->setData(MimeTypeOf(item.format), QByteArray::fromStdString(item.bytes));
  }
  clipboard->setMimeData(content.release());
  const QMimeData* arrived = clipboard->mimeData();
  if (arrived == nullptr) return ClipboardError::Empty;
  for (const Item& item : items) {
    if (arrived->data(MimeTypeOf(item.format)).toStdString() != item.bytes) {
      return ClipboardError::Set;
    }
  }
  return ClipboardError::None;
}

std::optional<std::string> QtClipboard::Get(const std::string& format, ClipboardError& error) {
  error = ClipboardError::None;
  const QClipboard* clipboard = SystemClipboard();
  const QMimeData* content = clipboard != nullptr ? clipboard->mimeData() : nullptr;
  if (content == nullptr) {
    error = ClipboardError::Open;
    return std::nullopt;
  }
  const QString type = MimeTypeOf(format);
  if (!content->hasFormat(type)) return std::nullopt;
  const QByteArray bytes = content->data(type);
  if (bytes.isNull()) {
    // Promised by its owner, but not handed over.
    error = ClipboardError::Get;
    return std::nullopt;
  }
  return bytes.toStdString();
}

bool QtClipboard::IsAvailable(const std::string& format) {
  const QClipboard* clipboard = SystemClipboard();
  const QMimeData* content = clipboard != nullptr ? clipboard->mimeData() : nullptr;
  return content != nullptr && content->hasFormat(MimeTypeOf(format));
}

}  // namespace morvane
