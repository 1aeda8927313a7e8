#include <zenu/zenu.h>

#include <cstdio>

int main()
{
    if (!zenu::equalNoCase("Installed", "installed")) {
        std::puts("the installed library does not answer");
        return 1;
    }
    return 0;
}
