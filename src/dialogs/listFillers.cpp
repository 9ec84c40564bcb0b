#include "dialogs/listFillers.h"

#include "platform/mousePointer.h"
#include "sqltext/dictionaryReader.h"

#include <QComboBox>
#include <QListWidget>
#include <QStringList>

namespace {

QStringList namesUnderHourglass(const QString &query, const std::shared_ptr<Connection> &connection)
{
    const HourglassPointer hourglass;
    return namesFrom(query, connection);
}

} // namespace

void fillCombo(const QString &query, QComboBox &combo,
               const std::shared_ptr<Connection> &connection)
{
    combo.clear();
    combo.addItems(namesUnderHourglass(query, connection));
    // The toolkit takes the first entry of a filled combo box as picked.
    combo.setCurrentIndex(-1);
}

void fillList(const QString &query, QListWidget &list,
              const std::shared_ptr<Connection> &connection)
{
    list.clear();
    list.addItems(namesUnderHourglass(query, connection));
}
