#include "program.h"

int main(int argc, char** argv)
{
    return TovaView::runProgram(argc, argv);
}
