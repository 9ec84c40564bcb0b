#include "dataaccess/rows/Value.h"

#include "dataaccess/rows/RowWriter.h"
#include "dataaccess/rows/packedCells.h"
#include "platform/RuntimeError.h"
#include "platform/checkedArithmetic.h"
#include "platform/numberForms.h"
#include "platform/textForms.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace {

template <typename... Alternatives>
struct Overloaded : Alternatives...
{
    using Alternatives::operator()...;
};
template <typename... Alternatives>
Overloaded(Alternatives...) -> Overloaded<Alternatives...>;

[[noreturn]] qint32 typeMismatch()
{
    throw RuntimeError(ErrorNumber::TypeMismatch);
}

} // namespace

bool Value::isNumber() const
{
    return std::holds_alternative<std::int64_t>(m_value) ||
           std::holds_alternative<double>(m_value) || std::holds_alternative<ExactNumber>(m_value);
}

QString Value::toText() const
{
    if (const auto *held = std::get_if<QString>(&m_value))
        return *held;
    RowWriter cell;
    cell.addValue(*this);
    QString text;
    appendPackedCellText(cell.data(), text);
    return text;
}

qint32 Value::toInteger() const
{
    return std::visit(
        Overloaded{
            [](EmptyValue) { return 0; },
            [](NullValue) -> qint32 { throw RuntimeError(ErrorNumber::InvalidUseOfNull); },
            [](bool value) { return value ? -1 : 0; },
            [](std::int64_t value) { return checkedCast<qint32>(value); },
            [](double value) { return roundedInteger(value); },
            [](const ExactNumber &value) { return textToInteger(value.digits); },
            [](const QString &value) { return textToInteger(value); },
            [](const Timestamp &) { return typeMismatch(); },
            [](const QByteArray &) { return typeMismatch(); },
        },
        m_value);
}

ShortText timestampForm(const Timestamp &timestamp)
{
    const bool hasDate = timestamp.year != 0 || timestamp.month != 0 || timestamp.day != 0;
    const ClockTime clockTime = timestamp.clockTime();
    return hasDate ? dateTimeForm(clockTime) : timeOfDayForm(clockTime);
}

QString textFromUtf8(QByteArrayView text)
{
    using Flag = QStringDecoder::Flag;
    return QStringDecoder(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom)(text);
}
