#include "sqltext/ResultPaging.h"

#include "dataaccess/Connection.h"
#include "platform/RuntimeError.h"
#include "platform/textForms.h"
#include "sqltext/outcomeTexts.h"
#include "sqltext/sqlTexts.h"

#include <QStringList>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int sourceCacheSize = 100;

/// Each name that stands again, before or behind, gets a suffix; in one pass, so a third one gets
/// two.
void makeUnique(QStringList &names)
{
    for (qsizetype i = 0; i < names.size(); ++i) {
        for (qsizetype j = 0; j < names.size(); ++j) {
            if (j != i && names[j] == names[i])
                names[j] += "_1"_L1;
        }
    }
}

} // namespace

void ResultPaging::setResult(std::shared_ptr<Recordset> result)
{
    m_result = std::move(result);
    m_recordsFetched = 0;
}

void ResultPaging::openResult(QString &sql, const std::shared_ptr<Connection> &connection)
{
    if (trimBlanks(sql).isEmpty())
        return;
    sql = lineFeedsOnly(sql);
    const auto source = std::make_shared<Recordset>();
    const std::shared_ptr<Recordset> result = m_result;
    source->setCacheSize(sourceCacheSize);
    m_source = source;
    source->Open(sql, connection);
    if (source->State() == adStateClosed || source->Eof())
        return;
    buildResultFields(*source, *result);
    source->MoveFirst();
    fetchRows(*source, *result, setSize);
}

void ResultPaging::buildResultFields(const Recordset &source, Recordset &result)
{
    QStringList names;
    for (int i = 0; i < source.fieldCount(); ++i)
        names += source.fieldName(i);
    makeUnique(names);
    for (const QString &name : std::as_const(names))
        result.appendField(name, adVariant);
    result.Open();
}

void ResultPaging::copyRow(Recordset &source, Recordset &result)
{
    result.addNewFrom(source);
    ++m_recordsFetched;
    source.MoveNext();
}

void ResultPaging::fetchRows(Recordset &source, Recordset &result, int count)
{
    for (int i = 0; i < count && !source.Eof(); ++i)
        copyRow(source, result);
}

void ResultPaging::retrieveNext()
{
    if (!m_source || !m_result)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    fetchRows(*m_source, *m_result, setSize);
    tellRows();
}

void ResultPaging::retrieveAll()
{
    const std::shared_ptr<ResultPaging> self = shared_from_this();
    const std::shared_ptr<Recordset> source = m_source;
    const std::shared_ptr<Recordset> result = m_result;
    m_fetchingAll = true;
    try {
        // What the user does meanwhile may put other recordsets in these ones' place.
        while (source && source == m_source && result == m_result && m_fetchingAll &&
               source->State() == adStateOpen && !source->Eof()) {
            copyRow(*source, *result);
            tellRows();
            if (m_yield)
                m_yield();
        }
    } catch (...) {
        tellRows(); // the rows before the failure have arrived
        throw;
    }
    tellRows();
}

QString ResultPaging::retrievedText() const
{
    return u"Records Retrieved: "_s + QString::number(m_recordsFetched);
}

QString ResultPaging::rowsText() const
{
    return isQuery() ? ::rowsText(m_recordsFetched, hasMore()) : QString();
}

void ResultPaging::tellRows() const
{
    if (m_rowsArrived)
        m_rowsArrived();
}
