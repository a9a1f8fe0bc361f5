#pragma once

#include <QStringList>
#include <QWidget>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace TMObjects {

// The command window: the history of what tools reported, and below it the prompt in front of
// the input line. Enter hands the line over, the empty line too, since tools take an empty
// Enter as an answer of its own. Up and Down bring back lines entered before.
class TLCommandWindow : public QWidget {
    Q_OBJECT

public:
    explicit TLCommandWindow(QWidget* parent = nullptr);

    void AppendHistory(const QString& line);
    // A line from the host rather than a tool (a failure it caught), set apart in colour.
    void AppendHostLine(const QString& line);
    void SetPrompt(const QString& prompt);
    // The name the receiving tool registered under, shown in the empty input; empty for none.
    void SetReceiver(const QString& name);
    // Puts text into the input line and gives it the focus, as if it had been typed there.
    void Type(const QString& text);

    QString Prompt() const;
    QStringList History() const;
    QLineEdit* Input() const { return mInput; }
    QPlainTextEdit* HistoryView() const { return mHistory; }
    QLabel* PromptLabel() const { return mPrompt; }

Q_SIGNALS:
    void lineEntered(const QString& line);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void enter();
    // A long prompt (the line command's menu of sub-commands) wraps rather than pushing the
    // input out of sight: the prompt takes its own width up to a share of the window.
    void fitPrompt();
    void recall(int step);
    void showLatest();

    QPlainTextEdit* mHistory;
    QLabel* mPrompt;
    QLineEdit* mInput;
    QStringList mEntered;
    // Where Up/Down stand in mEntered; mEntered.size() is the line being typed.
    int mRecallAt = 0;
    QString mDraft;
    // Whether the history shows its last line, and so keeps showing it as it changes size.
    bool mFollowing = true;
};

}  // namespace TMObjects
