#include "TLCommandWindow.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QVBoxLayout>
#include <algorithm>

namespace TMObjects {

namespace {

// Enough for a long session; older lines go so that the window never grows without end.
constexpr int kHistoryLines = 5000;
// The most of the window's width the prompt takes before it wraps.
constexpr double kPromptShare = 0.6;

}  // namespace

TLCommandWindow::TLCommandWindow(QWidget* parent)
    : QWidget(parent),
      mHistory(new QPlainTextEdit(this)),
      mPrompt(new QLabel(this)),
      mInput(new QLineEdit(this)) {
    const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    mHistory->setReadOnly(true);
    mHistory->setFont(fixed);
    mHistory->setMaximumBlockCount(kHistoryLines);
    mHistory->setFocusPolicy(Qt::ClickFocus);
    mHistory->setObjectName("commandHistory");
    // A long prompt may take several lines; the history gives up its height first.
    mHistory->setMinimumHeight(40);
    mPrompt->setFont(fixed);
    mPrompt->setObjectName("commandPrompt");
    mPrompt->setWordWrap(true);
    mPrompt->setTextFormat(Qt::PlainText);
    mInput->setFont(fixed);
    mInput->setObjectName("commandInput");
    mInput->installEventFilter(this);
    connect(mInput, &QLineEdit::returnPressed, this, &TLCommandWindow::enter);
    // The history follows its last line while the user has not scrolled back: also when it
    // shrinks because a long prompt wraps, which would otherwise hide the line just written.
    QScrollBar* scroll = mHistory->verticalScrollBar();
    connect(scroll, &QScrollBar::valueChanged, this,
            [this, scroll](int value) { mFollowing = value == scroll->maximum(); });
    connect(scroll, &QScrollBar::rangeChanged, this, [this, scroll](int, int maximum) {
        if (mFollowing) scroll->setValue(maximum);
    });

    auto* line = new QHBoxLayout;
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(mPrompt);
    // The input sits on the prompt's last line, where the text being answered ends.
    line->addWidget(mInput, 1, Qt::AlignBottom);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    layout->addWidget(mHistory, 1);
    layout->addLayout(line);
    setFocusProxy(mInput);
}

void TLCommandWindow::AppendHistory(const QString& line) {
    mHistory->appendPlainText(line);
    showLatest();
}

void TLCommandWindow::AppendHostLine(const QString& line) {
    mHistory->appendHtml(
        QStringLiteral("<span style=\"color:#b00020\">%1</span>").arg(line.toHtmlEscaped()));
    showLatest();
}

void TLCommandWindow::showLatest() {
    // A new line is news: the history goes to it even when the user had scrolled back.
    mFollowing = true;
    mHistory->verticalScrollBar()->setValue(mHistory->verticalScrollBar()->maximum());
}

void TLCommandWindow::SetPrompt(const QString& prompt) {
    mPrompt->setText(prompt);
    fitPrompt();
}

void TLCommandWindow::fitPrompt() {
    const int natural = mPrompt->fontMetrics().horizontalAdvance(mPrompt->text()) + 4;
    mPrompt->setFixedWidth(std::min(natural, int(width() * kPromptShare)));
}

void TLCommandWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fitPrompt();
}

void TLCommandWindow::SetReceiver(const QString& name) {
    mInput->setPlaceholderText(name);
}

void TLCommandWindow::Type(const QString& text) {
    mInput->setFocus(Qt::OtherFocusReason);
    mInput->insert(text);
}

QString TLCommandWindow::Prompt() const {
    return mPrompt->text();
}

QStringList TLCommandWindow::History() const {
    QStringList lines;
    for (QTextBlock block = mHistory->document()->firstBlock(); block.isValid();
         block = block.next())
        lines << block.text();
    // A new document holds one empty block before anything was written.
    if (lines.size() == 1 && lines.front().isEmpty()) lines.clear();
    return lines;
}

void TLCommandWindow::enter() {
    const QString line = mInput->text();
    if (!line.isEmpty() && (mEntered.isEmpty() || mEntered.back() != line)) mEntered << line;
    mRecallAt = mEntered.size();
    mDraft.clear();
    mInput->clear();
    Q_EMIT lineEntered(line);
}

void TLCommandWindow::recall(int step) {
    if (mEntered.isEmpty()) return;
    // Leaving the line being typed keeps it, so that Down brings it back.
    if (mRecallAt == mEntered.size()) mDraft = mInput->text();
    const int at = std::max(0, std::min(int(mEntered.size()), mRecallAt + step));
    if (at == mRecallAt) return;
    mRecallAt = at;
    mInput->setText(at == mEntered.size() ? mDraft : mEntered.at(at));
}

bool TLCommandWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == mInput && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            recall(key == Qt::Key_Up ? -1 : 1);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace TMObjects
