#pragma once

// What most tests of windows need.

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>
#include <QWindow>

#include "tests/support/ChartTest.h"
#include "tests/ui/Events.h"
#include "tests/ui/NextWindow.h"
