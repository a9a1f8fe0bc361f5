#pragma once

#include <QObject>
#include <functional>

class QWidget;

namespace TMObjects {

// Catches Escape anywhere in one window (the map, the command line, a panel, a toolbar) and
// hands it to the shell, which gives it to the tool in use first. Escape in other windows (a
// tool's dialog, a message box, a menu) stays theirs, and so does Escape in a table cell being
// edited, where it drops the typed value.
class TLEscapeRouter : public QObject {
    Q_OBJECT

public:
    TLEscapeRouter(QWidget* window, std::function<void()> onEscape);
    ~TLEscapeRouter() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool ours(QObject* receiver) const;

    QWidget* mWindow;
    std::function<void()> mOnEscape;
};

}  // namespace TMObjects
