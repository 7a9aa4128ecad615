#include "app/help_text.h"

namespace app {

std::wstring helpText() {
    return L"    Show:\r"
           L"DOWN\t= Pause\r"
           L"UP\t= weiter\r"
           L"LEFT\t= zur\u00FCck\r"
           L"RIGHT\t= vor\r"
           L"+\t= Musik lauter\r"
           L"-\t= Musik leiser\r"
           L".\t= Musik stumm\r"
           L"A..Z/#/?\t= Effekt w\u00E4hlen / alle / Infoanzeige\r"
           L"1..9\t= Pausenzeit (Sek)\r"
           L"ESC\t= beenden\r"
           L"Maus links   = Pause + Zeiger ein / n\u00E4chstes Bild\r"
           L"Maus rechts = automatisch weiter\r\r"
           L"    Vorschau:\r"
           L"Maus links    = Bild verschieben (Drag&Drop) \r"
           L"Maus rechts = Bearbeiten-Men\u00FC\r\r"
           L"    Hintergrundmusik:\r"
           L"MP3-Dateien in das Bilderverzeichnis kopieren.\r"
           L"Reihenfolge \u00FCber Bearbeiten-Men\u00FC \u00E4ndern.\r\r"
           L"www.panorell.example";
}

std::wstring titleAndVersion(int major, int minor) {
    return L"Panorell\r\nV " + std::to_wstring(major) + L"." + std::to_wstring(minor);
}

}  // namespace app
