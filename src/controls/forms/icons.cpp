#include "controls/forms/icons.h"

#include "controls/forms/ThemedIconEngine.h"
#include "controls/forms/iconImage.h"

static void initResources()
{
    Q_INIT_RESOURCE(resources);
}

QIcon themedIcon(const QString &name)
{
    static const bool initialised = (initResources(), true);
    Q_UNUSED(initialised);
    return hasIcon(name) ? QIcon(new ThemedIconEngine(name)) : QIcon();
}
