#include <cstdio>

int main()
{
    std::puts("zorbsim: the simulated host is not built yet; `zorbsim demo` arrives with it.");
    return 0;
}
