#include <apps/measure/Application.h>

int main(int argc, char** argv) {
    tesk::measure::OutputGuard output;
    return tesk::measure::runApplication({argv + (argc > 0 ? 1 : 0), argv + argc}, output);
}
