// lumivar: placeholder until the main window stands.
#include <fx.h>

int main(int argc, char* argv[]) {
    FXApp app("Lumivar", "zwk7");
    app.init(argc, argv);
    return 0;
}
