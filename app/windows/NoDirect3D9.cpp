// Qt 6.4 asks the graphics card's driver what it is before it shows the first window, for the sake
// of OpenGL, which this Qt is built without. That alone is most of the time to the first picture.
// In a program that Qt is linked into this function is taken in place of the system's, and there is
// nobody to ask.

extern "C" void* Direct3DCreate9(unsigned int);

extern "C" void* Direct3DCreate9(unsigned int)
{
    return nullptr;
}
