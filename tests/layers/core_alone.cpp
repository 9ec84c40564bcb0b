#include <QCoreApplication>

/// Nothing but the core, all of it: see core-alone-test.
int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    return 0;
}
