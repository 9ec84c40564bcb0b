#pragma once

#include "uisupport/ProgramFixture.h"

#include <QString>

#include <memory>

class Recordset;

/// The connection string of the sandbox's sample user.
QString sandboxConnectionString();

/// The program in this process, started on a connection, doing what a user has it do. A message
/// box ends the benchmark, as nobody is there to close it.
class RunningProgram
{
public:
    explicit RunningProgram(const QString &connectionString);

    ProgramFixture &fixture() { return m_program; }

    void setText(const QString &text);
    /// Presses Run, "Run as a script" and Rollback.
    void run();
    void runScript();
    void rollback();
    void retrieveAll();
    void stop();
    std::shared_ptr<Recordset> rows() const;

private:
    ProgramFixture m_program;
};
