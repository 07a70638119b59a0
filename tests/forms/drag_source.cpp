// A window of another program, from which a path is dragged as a file manager does.
//
//     drag_source PATH
//
// Stands at the screen's corner; ends when it is closed.
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

namespace {

class source : public QWidget {
  public:
    explicit source(const QString& path) : path_(path) { setGeometry(0, 0, 80, 40); }

  protected:
    void mouseMoveEvent(QMouseEvent* event) override {
        if (!event->buttons().testFlag(Qt::LeftButton)) return;
        auto* dragged = new QMimeData;
        dragged->setUrls({QUrl::fromLocalFile(path_)});
        auto* drag = new QDrag(this);
        drag->setMimeData(dragged);
        drag->exec(Qt::CopyAction | Qt::MoveAction);
    }

  private:
    QString path_;
};

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc != 2) return 2;
    source window(QString::fromLocal8Bit(argv[1]));
    window.show();
    return QApplication::exec();
}
