#pragma once

#include <QTreeWidget>
#include <vector>

class QMenu;
class QAction;
class QActionGroup;

namespace TMObjects {

// The plugin's tools grouped by subsystem, each with whether it is built, from the shell's tool
// table. The same list fills the Tools menu. A click on a tool (or Enter on it) picks it; the
// tool being used is shown checked in both places.
class TLToolPalette : public QTreeWidget {
    Q_OBJECT

public:
    enum Column { ToolColumn = 0, StatusColumn = 1 };

    explicit TLToolPalette(QWidget* parent = nullptr);

    // Adds one submenu per subsystem to `menu`, whose actions pick the tools like the palette.
    void FillMenu(QMenu* menu);
    // The table row's item; null for a row out of range.
    QTreeWidgetItem* ItemOf(int index) const;
    QAction* ActionOf(int index) const;
    // Marks the tool in use; -1 for none.
    void SetActive(int index);
    int Active() const { return mActive; }

    // "TLCmdDigitizePoint" reads "Digitize Point": the class name without its prefix, in words.
    static QString Label(const QString& className);

Q_SIGNALS:
    void toolPicked(int index);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void pickItem(QTreeWidgetItem* item);

    std::vector<QTreeWidgetItem*> mItems;
    std::vector<QAction*> mActions;
    QActionGroup* mGroup;
    int mActive = -1;
};

}  // namespace TMObjects
