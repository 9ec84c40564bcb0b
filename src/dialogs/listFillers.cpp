#include "dialogs/listFillers.h"

#include "dataaccess/Recordset.h"
#include "platform/RuntimeError.h"
#include "platform/mousePointer.h"

#include <QComboBox>
#include <QListWidget>
#include <QStringList>

namespace {

QString textOf(const Value &value)
{
    if (value.isNull())
        throw RuntimeError(ErrorNumber::InvalidUseOfNull);
    return value.toText();
}

QStringList firstColumn(const QString &query, const std::shared_ptr<Connection> &connection)
{
    if (!connection)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    const HourglassPointer hourglass;
    const auto rows = connection->Execute(query);
    QStringList texts;
    if (rows->Eof())
        return texts;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext())
        texts += textOf(rows->value(0));
    return texts;
}

} // namespace

void fillCombo(const QString &query, QComboBox &combo,
               const std::shared_ptr<Connection> &connection)
{
    combo.clear();
    combo.addItems(firstColumn(query, connection));
    // The toolkit takes the first entry of a filled combo box as picked.
    combo.setCurrentIndex(-1);
}

void fillList(const QString &query, QListWidget &list,
              const std::shared_ptr<Connection> &connection)
{
    list.clear();
    list.addItems(firstColumn(query, connection));
}
