#pragma once

#include <QObject>
#include <QTimer>
#include <memory>

class QQmlEngine;
class QQuickWindow;

namespace Veilshot {

class QuickPasteSession;

/// The floating window of the quick-paste panel: always on top, in no switcher, with keys of its own. It is
/// made once and goes when another application is chosen. Main thread only.
class QuickPastePanel : public QObject {
    Q_OBJECT

public:
    /// The engine must know the modules Veilshot.DesignSystem and Veilshot.Features. Both must outlive the
    /// panel.
    QuickPastePanel(QQmlEngine& engine, QuickPasteSession& session, QObject* parent = nullptr);
    ~QuickPastePanel() override;

    QQuickWindow& window() const { return *m_window; }

    bool isVisible() const;
    /// Puts it in its place on the screen that has the keyboard, in front of everything and with the
    /// keyboard.
    void orderFront();
    void orderOut();

Q_SIGNALS:
    void isVisibleChanged();
    /// It went because another application was chosen.
    void deactivated();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void activate();
    void follow(Qt::ApplicationState state);
    void leave();

    QuickPasteSession& m_session;
    std::unique_ptr<QQuickWindow> m_window;
    QTimer m_patience;
    /// It has had the keyboard since it was shown: only then can it lose it.
    bool m_hasBeenActive = false;
    bool m_isApplicationActive = true;
    /// Nothing was held the last time, either.
    bool m_hasSettled = false;
};

} // namespace Veilshot
