#pragma once

#include <QPlainTextEdit>

/// A text box of many lines for what a server prints. Copying gives the same text by key as by
/// menu, with carriage return + line feed; the key for selecting all is left to the menu.
class OutputPane : public QPlainTextEdit
{
    Q_OBJECT
public:
    using QPlainTextEdit::QPlainTextEdit;

protected:
    bool event(QEvent *event) override;
    QMimeData *createMimeDataFromSelection() const override;
};
