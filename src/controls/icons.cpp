#include "controls/icons.h"

#include "controls/SvgIconEngine.h"

#include <QFile>

using namespace Qt::StringLiterals;

static void initResources()
{
    Q_INIT_RESOURCE(resources);
}

QIcon themedIcon(const QString &name)
{
    static const bool initialised = (initResources(), true);
    Q_UNUSED(initialised);
    QFile file(u":/icons/%1.svg"_s.arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QIcon(new SvgIconEngine(name, file.readAll()));
}
