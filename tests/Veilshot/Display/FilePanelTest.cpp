#include "Veilshot/Platform/FilePanel.h"

#include "Veilshot/Platform/ImageTransfer.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

/// The real one, with a folder to save in. A timer is the user.
struct SavePanel : testing::Test {
    SystemFilePanel panel;
    QTemporaryDir folder;

    QUrl urlOf(const QString& name) const { return QUrl::fromLocalFile(folder.filePath(name)); }

    /// What the panel returns if the user does this.
    template<typename Actions>
    std::optional<QUrl> choose(Actions actions) {
        QTimer::singleShot(0, qApp, actions);
        return ImageTransfer::chooseExportURL(panel);
    }

    static QFileDialog& dialog() { return *qobject_cast<QFileDialog*>(QApplication::activeModalWidget()); }

    static QLineEdit& nameField() { return *dialog().findChild<QLineEdit*>(u"fileNameEdit"_s); }

    static void press(QDialogButtonBox::StandardButton button) {
        dialog().findChild<QDialogButtonBox*>(u"buttonBox"_s)->button(button)->click();
    }

    void save(const QString& name) const {
        dialog().setDirectory(folder.path());
        nameField().setText(name);
        press(QDialogButtonBox::Save);
    }

    /// Presses Save, and the answer if asked whether to replace a file. True if asked.
    static bool saveAndAnswer(QMessageBox::StandardButton answer) {
        bool asked = false;
        const QObject scope;
        QTimer::singleShot(0, &scope, [&] {
            if (auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                asked = true;
                question->button(answer)->click();
            }
        });
        press(QDialogButtonBox::Save);
        return asked;
    }
};

TEST_F(SavePanel, ProposesAPngFile) {
    EXPECT_EQ(choose([] {
                  EXPECT_EQ(dialog().windowTitle(), u"Export Protected Screenshot");
                  EXPECT_EQ(dialog().acceptMode(), QFileDialog::AcceptSave);
                  EXPECT_EQ(nameField().text(), u"protected-screenshot.png");
                  EXPECT_EQ(dialog().mimeTypeFilters(), QStringList{u"image/png"_s});
                  EXPECT_TRUE(dialog().findChild<QToolButton*>(u"newFolderButton"_s)->isEnabled());
                  press(QDialogButtonBox::Cancel);
              }),
              std::nullopt);
}

TEST_F(SavePanel, ReturnsAPngFileWhateverWasTyped) {
    const std::pair<QString, QString> names[]{{u"shot"_s, u"shot.png"_s},
                                              {u"shot.png"_s, u"shot.png"_s},
                                              {u"shot.PNG"_s, u"shot.PNG"_s},
                                              {u"shot.jpg"_s, u"shot.jpg.png"_s}};
    for (const auto& [typed, name] : names)
        EXPECT_EQ(choose([&] { save(typed); }), urlOf(name)) << typed.toStdString();
}

TEST_F(SavePanel, OpensWhereTheLastFileWentOrElseInAFolderThatExists) {
    const auto expectFolder = [&](const QString& path) {
        choose([&] {
            EXPECT_EQ(dialog().directory(), QDir(path));
            press(QDialogButtonBox::Cancel);
        });
    };
    expectFolder(QDir::homePath()); // which has no Pictures folder
    choose([&] { save(u"shot"_s); });
    expectFolder(folder.path());
    ASSERT_TRUE(folder.remove());
    expectFolder(QDir::homePath());
}

TEST_F(SavePanel, AsksBeforeAFileIsReplacedThatOnlyTheAddedSuffixNames) {
    QFile file(folder.filePath(u"shot.jpg.png"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        const QObject scope;
        const auto chosen = choose([&] {
            QTimer::singleShot(0, &scope, [&] { // when the panel is back
                EXPECT_EQ(nameField().text(), u"shot.jpg.png");
                EXPECT_TRUE(saveAndAnswer(answer));
                if (QApplication::activeModalWidget()) // still
                    press(QDialogButtonBox::Cancel);
            });
            save(u"shot.jpg"_s);
        });
        EXPECT_EQ(chosen,
                  answer == QMessageBox::Yes ? std::optional(urlOf(u"shot.jpg.png"_s)) : std::nullopt);
    }
}

} // namespace
} // namespace Veilshot
