#pragma once

namespace gallery {

// How the whole gallery looks.
struct Look
{
    bool dark = false;
    int fontSize = 0; // points, 0 for that of the desktop
    bool rightToLeft = false;
};

// Gives the application this look. Pages that are there already need not follow.
void setLook(Look const & look);

} // namespace gallery
