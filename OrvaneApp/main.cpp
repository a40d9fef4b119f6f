#include "OrvaneApp/OrvaneMain.h"

int main(int argc, char **argv)
{
    return OrvaneMain::main(argc, argv);
}
