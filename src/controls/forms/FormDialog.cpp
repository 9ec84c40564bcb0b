#include "controls/forms/FormDialog.h"

FormDialog::FormDialog(const QString &name, const QString &caption, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(name);
    setWindowTitle(caption);
}

int FormDialog::exec()
{
    return load() ? QDialog::exec() : int{Rejected};
}

void FormDialog::setVisible(bool visible)
{
    if (visible && !isVisible() && !load())
        return;
    QDialog::setVisible(visible);
    m_loaded = visible;
}

bool FormDialog::load()
{
    if (!m_loaded)
        m_loaded = Form_Load();
    return m_loaded;
}
