#include <windows.h>

#include <commctrl.h>

#include "app/application.h"
#include "app/parameter_text.h"
#include "media/media_back_end.h"
#include "platform/com.h"
#include "platform/program_dir.h"
#include "ui/windows_loop.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    const platform::ComApartment com(platform::ComApartment::Kind::SingleThreaded);
    const INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);
    ui::WindowsLoop loop;
    const auto control = media::createMediaControl();
    const std::wstring parameters(app::parametersOfCommandLine(GetCommandLineW()));
    app::Application application(loop, *control, platform::programDir(), app::parseParameters(parameters));
    // A show that the parameters start lets events run, and so may be left before the load has ended.
    loop.guarded([&] { application.load(parameters); });
    loop.run();
    return 0;
}
