// A message box of the desktop. Neither installed nor exported.
#ifndef CATDesktopBox_H
#define CATDesktopBox_H

// Shows a modal box until the user closes it; false when there is no desktop to show it on.
bool CATShowDesktopBox(bool isError, const char* title, const char* text);

#endif
