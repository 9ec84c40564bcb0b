#include "dataaccess/rows/Value.h"

#include "dataaccess/rows/RowWriter.h"
#include "dataaccess/rows/packedCells.h"
#include "platform/numberForms.h"

#include <QStringDecoder>

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
    if (isNull())
        throw RuntimeError(ErrorNumber::InvalidUseOfNull);
    if (std::holds_alternative<QByteArray>(m_value))
        throw RuntimeError(ErrorNumber::TypeMismatch);
    if (const auto *truth = std::get_if<bool>(&m_value))
        return *truth ? -1 : 0;
    if (const auto *number = std::get_if<double>(&m_value))
        return roundedInteger(*number);
    return isEmpty() ? 0 : textToInteger(toText());
}

QString textFromUtf8(QByteArrayView text)
{
    using Flag = QStringDecoder::Flag;
    return QStringDecoder(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom)(text);
}
