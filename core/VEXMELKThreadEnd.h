// Cleaning up after a thread that ends.
#ifndef VEXMELKThreadEnd_H
#define VEXMELKThreadEnd_H

// Has the calling thread run the function when it ends; asked again, it still runs once. All threads give the same
// function. It does not run when the process ends, because the host still asks then.
void VEXMELKAtThreadEnd(void (*act)());

#endif
