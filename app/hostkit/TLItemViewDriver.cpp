#include "hostkit/TLItemViewDriver.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QMouseEvent>
#include <QStringList>

namespace TMObjects {

namespace {

QAbstractItemView* viewOf(QWidget* widget, std::string& error) {
    auto* view = qobject_cast<QAbstractItemView*>(widget);
    if (!view || !view->model())
        error = "the widget " + widget->objectName().toStdString() + " is no list, tree or table";
    return view;
}

QString itemsText(const QAbstractItemModel& model, const QModelIndex& parent) {
    QStringList items;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        QString text = index.data().toString();
        if (model.rowCount(index) > 0) text += " (" + itemsText(model, index) + ")";
        items << text;
    }
    return items.join(parent.isValid() ? ", " : "; ");
}

// The first item below `parent`, depth first, whose text is `text`.
QModelIndex findItem(const QAbstractItemModel& model, const QModelIndex& parent,
                     const QString& text) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        if (index.data().toString() == text) return index;
        const QModelIndex below = findItem(model, index, text);
        if (below.isValid()) return below;
    }
    return QModelIndex();
}

QModelIndex cellAt(QAbstractItemView* view, int row, int column, std::string& error) {
    const QModelIndex cell = view->model()->index(row, column);
    if (!cell.isValid())
        error = "the view " + view->objectName().toStdString() + " has no cell " +
                std::to_string(row) + " " + std::to_string(column);
    return cell;
}

// A press and a release of the left button on the item, through the application's event
// dispatch. An item the view has not laid out (a view never shown) is picked and told as
// clicked without the mouse.
void click(QAbstractItemView* view, const QModelIndex& index) {
    view->scrollTo(index);
    const QRect rect = view->visualRect(index);
    if (rect.isEmpty() || !view->viewport()->isVisible()) {
        view->setCurrentIndex(index);
        Q_EMIT view->clicked(index);
        return;
    }
    const QPoint at = rect.center();
    QMouseEvent press(QEvent::MouseButtonPress, at, view->viewport()->mapToGlobal(at),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &press);
    QMouseEvent release(QEvent::MouseButtonRelease, at, view->viewport()->mapToGlobal(at),
                        Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &release);
}

}  // namespace

bool TLItemViewDriver::TreeText(QWidget* widget, std::string& text, std::string& error) {
    QAbstractItemView* view = viewOf(widget, error);
    if (!view) return false;
    text = itemsText(*view->model(), view->rootIndex()).toStdString();
    return true;
}

bool TLItemViewDriver::CellText(QWidget* widget, int row, int column, std::string& text,
                                std::string& error) {
    QAbstractItemView* view = viewOf(widget, error);
    if (!view) return false;
    const QModelIndex cell = cellAt(view, row, column, error);
    if (!cell.isValid()) return false;
    text = cell.data().toString().toStdString();
    return true;
}

bool TLItemViewDriver::ClickItem(QWidget* widget, const std::string& path, std::string& error) {
    QAbstractItemView* view = viewOf(widget, error);
    if (!view) return false;
    QModelIndex index = view->rootIndex();
    for (const QString& step : QString::fromStdString(path).split(" > ")) {
        index = findItem(*view->model(), index, step);
        if (!index.isValid()) {
            error =
                "the view " + widget->objectName().toStdString() + " has no item \"" + path + "\"";
            return false;
        }
    }
    click(view, index);
    return true;
}

bool TLItemViewDriver::ClickCell(QWidget* widget, int row, int column, std::string& error) {
    QAbstractItemView* view = viewOf(widget, error);
    if (!view) return false;
    const QModelIndex cell = cellAt(view, row, column, error);
    if (!cell.isValid()) return false;
    click(view, cell);
    return true;
}

}  // namespace TMObjects
