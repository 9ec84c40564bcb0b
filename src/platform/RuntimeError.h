#pragma once

#include <QString>

#include <exception>

/// Numbers of the run-time failures that this program raises. The texts belong to the numbers;
/// see errorDescription().
namespace ErrorNumber {
inline constexpr int InvalidProcedureCall = 5;
inline constexpr int Overflow = 6;
inline constexpr int OutOfMemory = 7;
inline constexpr int SubscriptOutOfRange = 9;
inline constexpr int TypeMismatch = 13;
inline constexpr int FileNotFound = 53;
inline constexpr int DeviceIoError = 57;
inline constexpr int DiskFull = 61;
inline constexpr int PermissionDenied = 70;
inline constexpr int PathFileAccessError = 75;
inline constexpr int PathNotFound = 76;
inline constexpr int ObjectVariableNotSet = 91;
inline constexpr int InvalidUseOfNull = 94;
inline constexpr int PrinterError = 482;
inline constexpr int CancelWasSelected = 32755;

// Data access (the numbers of the ADO error enumeration).
inline constexpr int ProviderFailed = 3000;
inline constexpr int InvalidArgument = 3001;
inline constexpr int NoCurrentRecord = 3021;
inline constexpr int IllegalOperation = 3219;
inline constexpr int FeatureNotAvailable = 3251;
inline constexpr int ItemNotFound = 3265;
inline constexpr int ObjectInCollection = 3367;
inline constexpr int ObjectClosed = 3704;
inline constexpr int ObjectOpen = 3705;
inline constexpr int ProviderNotFound = 3706;
inline constexpr int BadParameterInfo = 3708;
inline constexpr int InvalidConnection = 3709;
inline constexpr int MultipleStepErrors = -2147217887;
inline constexpr int NoTransaction = -2147168242;
inline constexpr int NestedTransaction = -2147168237;
} // namespace ErrorNumber

/// Every failure at run time, whoever finds it: the data layer, a conversion, a file.
struct RuntimeError : std::exception
{
    /// A failure whose text is the one that belongs to its number.
    explicit RuntimeError(int errorNumber);
    /// A failure with a text of its own, a server's message for example.
    RuntimeError(int errorNumber, QString errorDescription);

    int number;
    QString description;
    /// Five-character SQLSTATE of the first ODBC diagnostic record; empty for other failures.
    QString sqlState;
    /// The data source's own error code of that record; 0 for other failures.
    int nativeError = 0;
    /// Whether the user had asked for an end before it happened.
    bool isCancelled = false;

    /// The description in UTF-8, for logs and test output.
    const char *what() const noexcept override { return m_what.constData(); }

private:
    QByteArray m_what;
};

/// The standing text of @p errorNumber; "Application-defined or object-defined error" when the
/// number has none.
QString errorDescription(int errorNumber);
