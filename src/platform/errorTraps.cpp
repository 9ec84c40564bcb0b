#include "platform/errorTraps.h"

#include <new>

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
