#include "programme.h"

int main(int argc, char** argv)
{
    return lancerProgramme(argc, argv);
}
