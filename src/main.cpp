#include "app/startUp.h"

int main(int argc, char *argv[])
{
    return runQuerna(argc, argv);
}
