#include "uisupport/RunningProgram.h"

#include "app/MDIFormQuerna.h"
#include "controls/editor/EditorControl.h"
#include "editor/frmQuerna.h"
#include "platform/errorTraps.h"
#include "support/figures.h"

using namespace Qt::StringLiterals;

QString sandboxConnectionString()
{
    return u"Provider=OrbekSandbox;Data Source=SANDBOX;User ID=scott;Password=tiger;"_s;
}

RunningProgram::RunningProgram(const QString &connectionString)
{
    setMessagePresenter([](const QString &text) { giveUp(text); });
    m_program.start(connectionString);
    if (!m_program.ends.empty() || m_program.editor() == nullptr)
        giveUp(u"The program cannot be started on "_s + connectionString);
}

void RunningProgram::setText(const QString &text)
{
    m_program.text()->setText(text);
}

void RunningProgram::run()
{
    m_program.editor()->tbrQuerna_ButtonClick(1);
}

void RunningProgram::runScript()
{
    m_program.editor()->tbrQuerna_ButtonClick(2);
}

void RunningProgram::rollback()
{
    m_program.editor()->tbrQuerna_ButtonClick(7);
}

void RunningProgram::retrieveAll()
{
    m_program.editor()->Toolbar1_ButtonClick(2);
}

void RunningProgram::stop()
{
    m_program.editor()->Toolbar1_ButtonClick(3);
}

std::shared_ptr<Recordset> RunningProgram::rows() const
{
    return m_program.editor()->rsResult();
}
