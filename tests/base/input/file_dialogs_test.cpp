// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/file_dialogs.h"

#include <functional>
#include <string>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPointer>
#include <QString>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

#include "tests/support/user.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class FileDialogsOnTheScreen : public ::testing::Test {
 protected:
  static constexpr int Patience = 10000;  // milliseconds

  FileDialogsOnTheScreen() {
    for (const auto* name : {"there.wav", "other.wav"}) {
      QFile file(PathOf(name));
      EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    }
    EXPECT_TRUE(QDir(folder.path()).mkdir(u"inner"_s));
  }

  [[nodiscard]] QString PathOf(const char* name) const {
    return QDir::toNativeSeparators(folder.filePath(QString::fromUtf8(name)));
  }
  [[nodiscard]] FileQuestion Question(const QString& start) const {
    return {.name = u"DLG"_s,
            .title = u"Choose"_s,
            .filters = {u"WAV files (*.wav)"_s, u"All Files (*.*) (*)"_s},
            .start = start};
  }

  // Open a dialog and handle events until it is gone; nothing where no path was chosen.
  QString AskForExisting(const FileQuestion& question, QWidget* owner = nullptr) {
    return Chosen([&](const FileDialogs::WhenChosen& chosen) {
      dialogs.AskForExisting(owner, question, chosen);
    });
  }
  QString AskForTarget(const FileQuestion& question, const QString& suffix,
                       QWidget* owner = nullptr) {
    return Chosen([&](const FileDialogs::WhenChosen& chosen) {
      dialogs.AskForTarget(owner, question, suffix, chosen);
    });
  }
  static QString Chosen(const std::function<void(const FileDialogs::WhenChosen&)>& open) {
    QString path;
    open([&](const QString& chosen) { path = chosen; });
    EXPECT_TRUE(
        QTest::qWaitFor([] { return QApplication::activeModalWidget() == nullptr; }, Patience));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return path;
  }

  // Does something once the dialog stands.
  void WhenOpen(std::function<void(QFileDialog*)> action) {
    QTimer::singleShot(0, qApp, [this, action = std::move(action)] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      opened = dialog;
      ASSERT_TRUE(QTest::qWaitForWindowActive(dialog, Patience));
      action(dialog);
    });
  }
  static QLineEdit* NameField(const QFileDialog* dialog) {
    auto* field = dialog->findChild<QLineEdit*>(u"fileNameEdit"_s);
    EXPECT_NE(field, nullptr) << "not the toolkit's own dialog";
    return field;
  }
  static void Enter(const QFileDialog* dialog, const QString& name) {
    NameField(dialog)->setFocus();
    NameField(dialog)->setText(name);
    Key(Qt::Key_Return);
  }
  // Nothing else is asked once a name was entered: no box stands over the dialog.
  static void ExpectNoBox() {
    EXPECT_EQ(qobject_cast<QFileDialog*>(QApplication::activeModalWidget()),
              QApplication::activeModalWidget());
  }

  QTemporaryDir folder;
  ModalDialogs modal;
  ScreenFileDialogs dialogs{modal};
  QPointer<QFileDialog> opened;
};

TEST_F(FileDialogsOnTheScreen, ForExistingFilesLookAsAsked) {
  WhenOpen([&](QFileDialog* dialog) {
    EXPECT_EQ(dialog->objectName(), u"DLG"_s);
    EXPECT_EQ(dialog->windowTitle(), u"Choose"_s);
    EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptOpen);
    EXPECT_EQ(dialog->fileMode(), QFileDialog::ExistingFile);
    EXPECT_EQ(dialog->windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(dialog->directory(), QDir(folder.path()));
    EXPECT_EQ(NameField(dialog)->text(), u"there.wav"_s);
    const auto* filters = dialog->findChild<QComboBox*>(u"fileTypeCombo"_s);
    ASSERT_NE(filters, nullptr);
    ASSERT_EQ(filters->count(), 2);
    EXPECT_EQ(filters->itemText(0), u"WAV files"_s);
    EXPECT_EQ(filters->itemText(1).trimmed(), u"All Files (*.*)"_s);
    EXPECT_EQ(filters->currentIndex(), 0);
    Key(Qt::Key_Return);
  });
  EXPECT_EQ(AskForExisting(Question(PathOf("there.wav"))), PathOf("there.wav"));
  EXPECT_EQ(opened, nullptr) << "the dialog is left behind";
}

TEST_F(FileDialogsOnTheScreen, ForTargetsLookAsAsked) {
  WhenOpen([&](QFileDialog* dialog) {
    EXPECT_EQ(dialog->objectName(), u"DLG"_s);
    EXPECT_EQ(dialog->windowTitle(), u"Choose"_s);
    EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog->windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(dialog->directory(), QDir(folder.path()));
    EXPECT_EQ(NameField(dialog)->text(), u"new.wav"_s);
    Key(Qt::Key_Return);
  });
  EXPECT_EQ(AskForTarget(Question(PathOf("new.wav")), u"wav"_s), PathOf("new.wav"));
  EXPECT_EQ(opened, nullptr) << "the dialog is left behind";
  EXPECT_FALSE(QFile::exists(PathOf("new.wav")));
}

TEST_F(FileDialogsOnTheScreen, GiveTheFileThatWasEntered) {
  WhenOpen([&](QFileDialog* dialog) { Enter(dialog, u"other.wav"_s); });
  EXPECT_EQ(AskForExisting(Question(PathOf("there.wav"))), PathOf("other.wav"));
}

TEST_F(FileDialogsOnTheScreen, CancelledGiveNothing) {
  WhenOpen([](QFileDialog*) { Key(Qt::Key_Escape); });
  EXPECT_EQ(AskForExisting(Question(PathOf("there.wav"))), QString());
  EXPECT_EQ(opened, nullptr) << "the dialog is left behind";
  WhenOpen([](QFileDialog*) { Key(Qt::Key_Escape); });
  EXPECT_EQ(AskForTarget(Question(PathOf("there.wav")), u"wav"_s), QString());
  EXPECT_EQ(opened, nullptr) << "the dialog is left behind";
}

TEST_F(FileDialogsOnTheScreen, DoNotAskAboutOverwriting) {
  WhenOpen([&](QFileDialog* dialog) {
    Enter(dialog, u"there.wav"_s);
    ExpectNoBox();
  });
  EXPECT_EQ(AskForTarget(Question(PathOf("new.wav")), u"wav"_s), PathOf("there.wav"));
}

TEST_F(FileDialogsOnTheScreen, GiveATargetWithoutAnExtensionItsSuffix) {
  WhenOpen([&](QFileDialog* dialog) { Enter(dialog, u"plain"_s); });
  EXPECT_EQ(AskForTarget(Question(PathOf("new.wav")), u"wav"_s), PathOf("plain.wav"));
  WhenOpen([&](QFileDialog* dialog) { Enter(dialog, u"other.pcm"_s); });
  EXPECT_EQ(AskForTarget(Question(PathOf("new.wav")), u"wav"_s), PathOf("other.pcm"));
}

// Where no file is to be chosen at first: nothing remembered, or a path of another platform.
TEST_F(FileDialogsOnTheScreen, StartAnywhereWithoutAnAbsolutePath) {
  for (const auto& start : {QString(), u"there.wav"_s, u"Q:relative.wav"_s}) {
    WhenOpen([&](QFileDialog* dialog) {
      EXPECT_EQ(NameField(dialog)->text(), QString()) << start.toStdString();
      Key(Qt::Key_Escape);
    });
    EXPECT_EQ(AskForExisting(Question(start)), QString());
  }
}

TEST_F(FileDialogsOnTheScreen, OpenThoughTheFolderIsGone) {
  WhenOpen([](QFileDialog*) { Key(Qt::Key_Escape); });
  EXPECT_EQ(AskForExisting(Question(PathOf("gone/there.wav"))), QString());
}

TEST_F(FileDialogsOnTheScreen, GiveNothingWhenTheProgramEnds) {
  WhenOpen([&](QFileDialog*) { modal.End(); });
  EXPECT_EQ(AskForExisting(Question(PathOf("there.wav"))), QString());
  EXPECT_EQ(opened, nullptr) << "the dialog is left behind";
  // None opens any more.
  EXPECT_EQ(AskForExisting(Question(PathOf("there.wav"))), QString());
  EXPECT_EQ(AskForTarget(Question(PathOf("there.wav")), u"wav"_s), QString());
}

TEST_F(FileDialogsOnTheScreen, GiveNothingWhenTheOwnerGoes) {
  auto* owner = new QWidget;
  owner->show();
  WhenOpen([&](QFileDialog*) { delete owner; });
  EXPECT_EQ(AskForExisting(Question(PathOf("there.wav")), owner), QString());
  EXPECT_EQ(opened, nullptr);
  auto* next = new QWidget;
  next->show();
  WhenOpen([&](QFileDialog*) { delete next; });
  EXPECT_EQ(AskForTarget(Question(PathOf("there.wav")), u"wav"_s, next), QString());
}

TEST_F(FileDialogsOnTheScreen, BelongToTheirOwner) {
  QWidget owner;
  owner.show();
  WhenOpen([&](QFileDialog* dialog) {
    EXPECT_EQ(dialog->parentWidget(), &owner);
    Key(Qt::Key_Escape);
  });
  EXPECT_EQ(AskForExisting(Question({}), &owner), QString());
  EXPECT_EQ(owner.findChildren<QFileDialog*>().size(), 0);
}

}  // namespace
}  // namespace brindle
