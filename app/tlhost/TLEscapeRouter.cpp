#include "TLEscapeRouter.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace TMObjects {

TLEscapeRouter::TLEscapeRouter(QWidget* window, std::function<void()> onEscape)
    : QObject(window), mWindow(window), mOnEscape(std::move(onEscape)) {
    qApp->installEventFilter(this);
}

TLEscapeRouter::~TLEscapeRouter() {
    qApp->removeEventFilter(this);
}

bool TLEscapeRouter::ours(QObject* receiver) const {
    auto* widget = qobject_cast<QWidget*>(receiver);
    if (!widget || widget->window() != mWindow) return false;
    // A cell editor is a child of its view's viewport (the viewport itself is no editor).
    for (QWidget* w = widget; w && w != mWindow; w = w->parentWidget()) {
        QWidget* parent = w->parentWidget();
        auto* view = parent ? qobject_cast<QAbstractItemView*>(parent->parentWidget()) : nullptr;
        if (view && parent == view->viewport()) return false;
    }
    return true;
}

bool TLEscapeRouter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape && ours(watched)) {
        mOnEscape();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace TMObjects
