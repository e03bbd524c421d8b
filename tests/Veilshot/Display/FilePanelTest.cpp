#include "Veilshot/Platform/FilePanel.h"

#include "Veilshot/Platform/ImageTransfer.h"
#include "tests/Veilshot/FileContents.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWindow>
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
};

TEST_F(SavePanel, ReturnsAPngFileWhateverIsTypedAndAsksBeforeAnyIsReplaced) {
    EXPECT_EQ(choose([] {
                  EXPECT_EQ(nameField().text(), u"protected-screenshot.png");
                  press(QDialogButtonBox::Cancel);
              }),
              std::nullopt);
    const std::pair<QString, QString> names[]{
        {u"shot"_s, u"shot.png"_s}, {u"shot.PNG"_s, u"shot.PNG"_s}, {u"shot.jpg"_s, u"shot.jpg.png"_s}};
    for (const auto& [typed, name] : names)
        EXPECT_EQ(choose([&] { save(typed); }), urlOf(name)) << typed.toStdString();

    FileContents::write(folder.filePath(u"shot.jpg.png"_s), {}); // which only the added suffix names
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        const QObject scope;
        bool isAsked = false;
        const auto chosen = choose([&] {
            QTimer::singleShot(0, &scope, [&] { // when the panel is back
                EXPECT_EQ(nameField().text(), u"shot.jpg.png");
                QTimer::singleShot(0, &scope, [&] {
                    if (auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                        isAsked = true;
                        question->button(answer)->click();
                    }
                });
                press(QDialogButtonBox::Save);
                if (QApplication::activeModalWidget()) // still
                    press(QDialogButtonBox::Cancel);
            });
            save(u"shot.jpg"_s);
        });
        EXPECT_TRUE(isAsked);
        EXPECT_EQ(chosen.has_value(), answer == QMessageBox::Yes);
    }
}

TEST_F(SavePanel, OpensOverTheActiveWindowWhereTheLastFileWentOrElseInAFolderThatExists) {
    QWindow window;
    window.show();
    const auto chooseOverWindow = [&](const std::function<void()>& actions) {
        window.requestActivate(); // there is no window manager to do it
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        choose(actions);
    };
    const auto expectFolder = [&](const QString& path) {
        chooseOverWindow([&] {
            EXPECT_EQ(dialog().directory(), QDir(path));
            EXPECT_EQ(dialog().windowHandle()->transientParent(), &window);
            press(QDialogButtonBox::Cancel);
        });
    };
    expectFolder(QDir::homePath()); // which has no Pictures folder
    chooseOverWindow([&] { save(u"shot"_s); });
    expectFolder(folder.path());
    ASSERT_TRUE(folder.remove());
    expectFolder(QDir::homePath());
}

} // namespace
} // namespace Veilshot
