// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <initializer_list>

#include <QAbstractButton>
#include <QBoxLayout>
#include <QGroupBox>
#include <QLabel>
#include <QList>
#include <QPixmap>
#include <QString>
#include <QWidget>

namespace brindle {

// What every window is laid out with, so that all windows look alike.

/// Between the edge of a window or frame and what is in it, in device-independent pixels.
inline constexpr int Margin = 12;
/// Between the rows and columns of one frame.
inline constexpr int Spacing = 8;
/// Between frames.
inline constexpr int FrameSpacing = 12;

/// The beginning of a line: a text, which becomes a label, or a label, option or box.
class RowHead {
 public:
  RowHead() = default;
  // Implicit: nodes of a tree.
  RowHead(const QString& text);
  RowHead(QLabel* label);
  RowHead(QAbstractButton* button);

  /// Null where the line has no head.
  [[nodiscard]] QWidget* Widget() const { return widget_; }
  [[nodiscard]] const QString& Text() const { return text_; }

 private:
  QWidget* widget_ = nullptr;
  QString text_;
};

/// A line "head, control, control..." of a frame; if it has only one of the two, that takes the
/// whole line. A control without an accessible name gets the text of the head; spin buttons get it
/// followed by "plus" or "minus".
struct Row {
  RowHead head;
  QList<QWidget*> controls;
};

/// A frame with a caption. It paints itself once and then reuses that picture: every change inside
/// a frame makes the toolkit repaint the frame under it, at every key.
class Frame : public QGroupBox {
  Q_OBJECT

 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QPixmap picture_;
};

/// A frame with a caption and its rows in one grid: labels left, controls right, all aligned.
[[nodiscard]] QGroupBox* MakeFrame(const QString& caption, std::initializer_list<Row> rows);
[[nodiscard]] QGroupBox* MakeFrame(const QString& name, const QString& caption,
                                   std::initializer_list<Row> rows);

/// A frame with a caption around the given layout.
[[nodiscard]] QGroupBox* MakeFrame(const QString& caption, QLayout* contents);

/// Widgets in lines and columns; all columns except the first are equally wide.
[[nodiscard]] QLayout* Table(std::initializer_list<std::initializer_list<QWidget*>> rows);

/// Makes the widgets keep their place while they are hidden, so that nothing else moves.
void KeepRoom(std::initializer_list<QWidget*> widgets);

/// Gives each control `label` as its accessible name, spin buttons followed by "plus" or "minus":
/// for controls whose label does not begin their line.
void NameByLabel(const QString& label, std::initializer_list<QWidget*> controls);

/// Gives each control "label tooltip" as its accessible name: for controls that share one label.
void NameByTooltip(const QString& label, std::initializer_list<QWidget*> controls);

/// A node of a window's layout tree: a widget, another layout, or room that stretches.
class Item {
 public:
  // Implicit: nodes of a tree.
  Item(QWidget* widget) : widget_(widget) {}
  Item(QLayout* layout) : layout_(layout) {}
  static Item Stretch() { return {static_cast<QWidget*>(nullptr)}; }

  void AddTo(QBoxLayout* box) const;

 private:
  QWidget* widget_ = nullptr;
  QLayout* layout_ = nullptr;
};

[[nodiscard]] QBoxLayout* Across(std::initializer_list<Item> items, int spacing = FrameSpacing);
[[nodiscard]] QBoxLayout* Down(std::initializer_list<Item> items, int spacing = FrameSpacing);

/// Frames in a grid: each inner list is a row of equally high frames, each column equally wide
/// ones.
[[nodiscard]] QLayout* Tiles(std::initializer_list<std::initializer_list<QWidget*>> rows);

/// Puts the tree into the window, and from then on keeps the window exactly as large as its
/// contents and its caption need, whatever the font.
void LayOut(QWidget* window, QLayout* tree);

}  // namespace brindle
