#pragma once

#include <memory>

class QsciPrinter;
class QsciScintillaBase;
class QWidget;

/// The editor control's page set-up. The pages are printed from there, by its Print button.
class EditorPageSetup
{
public:
    explicit EditorPageSetup(QsciScintillaBase &editor);
    ~EditorPageSetup();

    /// Shows the dialog and waits until it is closed; what was set up stays for the next time.
    /// @throws RuntimeError 482 when the printer fails
    void exec();

private:
    void print(QWidget *parent);

    QsciScintillaBase &m_editor;
    std::unique_ptr<QsciPrinter> m_printer;
};
