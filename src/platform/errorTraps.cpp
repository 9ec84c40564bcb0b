#include "platform/errorTraps.h"

#include <cstdio>
#include <new>

namespace {

std::function<void(const QString &)> presenter;

} // namespace

void showMessage(const QString &text)
{
    if (presenter)
        presenter(text);
    else
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

void setMessagePresenter(std::function<void(const QString &)> newPresenter)
{
    presenter = std::move(newPresenter);
}

RuntimeError currentRuntimeError() noexcept
{
    try {
        throw;
    } catch (const RuntimeError &error) {
        return error;
    } catch (const std::bad_alloc &) {
        return RuntimeError(ErrorNumber::OutOfMemory);
    } catch (const std::exception &error) {
        return RuntimeError(ErrorNumber::InvalidProcedureCall, QString::fromUtf8(error.what()));
    } catch (...) {
        return RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
}
