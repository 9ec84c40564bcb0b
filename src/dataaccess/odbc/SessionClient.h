#pragma once

/// Something that keeps a statement of a session open.
class SessionClient
{
public:
    /// The session ends: give the statement back; nothing more can be read from it.
    virtual void sessionClosing() = 0;
    /// Whether rows are still to be read from the driver.
    virtual bool hasOpenResult() const = 0;
    /// Reads what is left into memory and gives the statement back.
    virtual void releaseResult() = 0;

protected:
    ~SessionClient() = default;
};
