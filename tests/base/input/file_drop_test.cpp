// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/file_drop.h"

#include <memory>
#include <string>
#include <vector>

#include <QApplication>
#include <QCoreApplication>
#include <QDialog>
#include <QDir>
#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QList>
#include <QMimeData>
#include <QMouseEvent>
#include <QString>
#include <QUrl>
#include <QWidget>
#include <gtest/gtest.h>

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class FileDrops : public ::testing::Test {
 protected:
  FileDrops() {
    QObject::connect(drop, &FileDrop::Dropped,
                     [this](const QString& path) { dropped.push_back(path.toStdString()); });
  }

  bool Enter() {
    QDragEnterEvent event({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, {});
    event.accept();
    QApplication::sendEvent(window.get(), &event);
    return event.isAccepted();
  }
  bool Move() {
    QDragMoveEvent event({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, {});
    event.accept();
    QApplication::sendEvent(window.get(), &event);
    return event.isAccepted();
  }
  bool LetGo() {
    QDropEvent event({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, {});
    event.accept();
    QApplication::sendEvent(window.get(), &event);
    return event.isAccepted();
  }
  // A whole drag; to a window that turned it away the toolkit sends no more of it.
  bool All() { return Enter() && Move() && LetGo(); }
  void SetFiles(const std::vector<QString>& paths) {
    QList<QUrl> urls;
    for (const auto& path : paths) {
      urls.push_back(QUrl::fromLocalFile(path));
    }
    data.setUrls(urls);
  }

  std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
  FileDrop* drop = new FileDrop(window.get());
  QMimeData data;
  std::vector<std::string> dropped;
};

using Paths = std::vector<std::string>;

TEST_F(FileDrops, ArePossible) { EXPECT_TRUE(window->acceptDrops()); }

TEST_F(FileDrops, AreToldFromTheEventLoop) {
  SetFiles({u"/music/a b%20c.wav"_s});
  EXPECT_TRUE(All());
  EXPECT_EQ(dropped, Paths()) << "the program that the file comes from still waits";
  QCoreApplication::processEvents();
  EXPECT_EQ(dropped, Paths{QDir::toNativeSeparators(u"/music/a b%20c.wav"_s).toStdString()});
}

TEST_F(FileDrops, OfSeveralGiveTheFirst) {
  SetFiles({u"/b.wav"_s, u"/a.wav"_s});
  EXPECT_TRUE(All());
  QCoreApplication::processEvents();
  EXPECT_EQ(dropped, Paths{QDir::toNativeSeparators(u"/b.wav"_s).toStdString()});
}

TEST_F(FileDrops, OfNoFileAreTurnedAway) {
  EXPECT_FALSE(All());
  data.setText(u"/a.wav"_s);
  EXPECT_FALSE(All());
  data.setUrls({QUrl(u"https://example.org/a.wav"_s)});
  EXPECT_FALSE(All());
  QCoreApplication::processEvents();
  EXPECT_EQ(dropped, Paths());
}

TEST_F(FileDrops, AreTurnedAwayWhileNoneIsAccepted) {
  SetFiles({u"/a.wav"_s});
  drop->SetAccepting(false);
  EXPECT_FALSE(All());
  QCoreApplication::processEvents();
  EXPECT_EQ(dropped, Paths());
  drop->SetAccepting(true);
  EXPECT_TRUE(All());
  QCoreApplication::processEvents();
  EXPECT_EQ(dropped.size(), 1U);
}

TEST_F(FileDrops, AreTurnedAwayInTheMiddleOfADrag) {
  SetFiles({u"/a.wav"_s});
  EXPECT_TRUE(Enter());
  drop->SetAccepting(false);
  EXPECT_FALSE(Move());
  EXPECT_FALSE(LetGo());
  QCoreApplication::processEvents();
  EXPECT_EQ(dropped, Paths());
}

TEST_F(FileDrops, OnAWindowThatGoesAreForgotten) {
  SetFiles({u"/a.wav"_s});
  EXPECT_TRUE(All());
  window.reset();
  QCoreApplication::processEvents();
  EXPECT_EQ(dropped, Paths());
}

TEST_F(FileDrops, LeaveOtherEventsAlone) {
  QMouseEvent press(QEvent::MouseButtonPress, {1, 1}, {1, 1}, Qt::LeftButton, Qt::LeftButton, {});
  EXPECT_FALSE(drop->eventFilter(window.get(), &press));
}

// The program that the file comes from would delete what it believes to have been moved.
TEST_F(FileDrops, AreCopiesWhateverWasProposed) {
  SetFiles({u"/music/song.wav"_s});
  ASSERT_TRUE(Enter() && Move());
  QDropEvent event({1, 1}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                   Qt::ShiftModifier);
  event.setDropAction(Qt::MoveAction);
  QApplication::sendEvent(window.get(), &event);
  EXPECT_TRUE(event.isAccepted());
  EXPECT_EQ(event.dropAction(), Qt::CopyAction);
}

TEST_F(FileDrops, AreTurnedAwayWhileADialogStopsTheProgram) {
  SetFiles({u"/music/song.wav"_s});
  ASSERT_TRUE(Enter() && Move());
  QDialog dialog;
  dialog.setModal(true);
  dialog.show();
  EXPECT_FALSE(LetGo());
  EXPECT_FALSE(Enter());
  dialog.hide();
  EXPECT_TRUE(All());
}

// A box that opened behind the drop.
TEST_F(FileDrops, AreForgottenWhenADialogOpensMeanwhile) {
  SetFiles({u"/music/song.wav"_s});
  ASSERT_TRUE(All());
  QDialog dialog;
  dialog.setModal(true);
  dialog.show();
  QApplication::processEvents();
  EXPECT_TRUE(dropped.empty());
}

}  // namespace
}  // namespace brindle
