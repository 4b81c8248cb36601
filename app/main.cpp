#include "app/ViewerProgram.h"

int main(int argc, char** argv)
{
    return vireo::RunViewerProgram(argc, argv);
}
