#include "platform/RuntimeError.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct ErrorText
{
    int number;
    QLatin1StringView text;
};

constexpr ErrorText errorTexts[] = {
    {ErrorNumber::InvalidProcedureCall, "Invalid procedure call or argument"_L1},
    {ErrorNumber::Overflow, "Overflow"_L1},
    {ErrorNumber::OutOfMemory, "Out of memory"_L1},
    {ErrorNumber::SubscriptOutOfRange, "Subscript out of range"_L1},
    {ErrorNumber::TypeMismatch, "Type mismatch"_L1},
    {ErrorNumber::FileNotFound, "File not found"_L1},
    {ErrorNumber::DeviceIoError, "Device I/O error"_L1},
    {ErrorNumber::DiskFull, "Disk full"_L1},
    {ErrorNumber::PermissionDenied, "Permission denied"_L1},
    {ErrorNumber::PathFileAccessError, "Path/File access error"_L1},
    {ErrorNumber::PathNotFound, "Path not found"_L1},
    {ErrorNumber::ObjectVariableNotSet, "Object variable or With block variable not set"_L1},
    {ErrorNumber::InvalidUseOfNull, "Invalid use of Null"_L1},
    {ErrorNumber::PrinterError, "Printer error"_L1},
    {ErrorNumber::CancelWasSelected, "Cancel was selected."_L1},
    {ErrorNumber::ProviderFailed, "Provider failed to perform the requested operation."_L1},
    {ErrorNumber::InvalidArgument,
     "Arguments are of the wrong type, are out of acceptable range, or are in conflict with one "
     "another."_L1},
    {ErrorNumber::NoCurrentRecord,
     "Either BOF or EOF is True, or the current record has been deleted. Requested operation "
     "requires a current record."_L1},
    {ErrorNumber::IllegalOperation, "Operation is not allowed in this context."_L1},
    {ErrorNumber::FeatureNotAvailable,
     "Object or provider is not able to perform requested operation."_L1},
    {ErrorNumber::ItemNotFound,
     "Item cannot be found in the collection corresponding to the requested name or ordinal."_L1},
    {ErrorNumber::ObjectInCollection, "Object is already in collection. Cannot append."_L1},
    {ErrorNumber::ObjectClosed, "Operation is not allowed when the object is closed."_L1},
    {ErrorNumber::ObjectOpen, "Operation is not allowed when the object is open."_L1},
    {ErrorNumber::ProviderNotFound,
     "Provider cannot be found. It may not be properly installed."_L1},
    {ErrorNumber::BadParameterInfo,
     "Parameter object is improperly defined. Inconsistent or incomplete information was "
     "provided."_L1},
    {ErrorNumber::InvalidConnection,
     "The connection cannot be used to perform this operation. It is either closed or invalid in "
     "this context."_L1},
    {ErrorNumber::MultipleStepErrors,
     "Multiple-step operation generated errors. Check each status value."_L1},
    {ErrorNumber::NoTransaction, "No transaction is active."_L1},
    {ErrorNumber::NestedTransaction, "Only one transaction can be active on this session."_L1},
};

} // namespace

QString errorDescription(int errorNumber)
{
    const auto *found =
        std::find_if(std::begin(errorTexts), std::end(errorTexts),
                     [errorNumber](const ErrorText &e) { return e.number == errorNumber; });
    if (found == std::end(errorTexts))
        return u"Application-defined or object-defined error"_s;
    return found->text;
}

RuntimeError::RuntimeError(int errorNumber)
    : RuntimeError(errorNumber, errorDescription(errorNumber))
{
}

RuntimeError::RuntimeError(int errorNumber, QString errorDescription)
    : number(errorNumber)
    , description(std::move(errorDescription))
    , m_what(description.toUtf8())
{
}
