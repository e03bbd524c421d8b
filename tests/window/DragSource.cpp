#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

/// A file manager with a single file, which the pointer can drag away. It runs on, for who takes it asks for it later.
class DragSource : public QWidget {
public:
    explicit DragSource(const QString& path) : QWidget(nullptr, Qt::BypassWindowManagerHint), m_path(path) {}

protected:
    void mouseMoveEvent(QMouseEvent*) override {
        auto* drag = new QDrag(this);
        auto* url = new QMimeData;
        url->setUrls({QUrl::fromLocalFile(m_path)});
        drag->setMimeData(url);
        drag->exec(Qt::CopyAction);
    }

private:
    QString m_path;
};

int main(int argumentCount, char** arguments) {
    const QApplication application(argumentCount, arguments);
    DragSource source(QString::fromLocal8Bit(arguments[1]));
    source.setGeometry(0, 0, 40, 40);
    source.show();
    return QApplication::exec();
}
