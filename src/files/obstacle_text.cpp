#include "files/obstacle_text.h"

namespace files {

namespace {

/// What the sentence begins with.
std::wstring subject(const std::wstring& name) {
    return name.empty() ? std::wstring(L"Der Ordner") : L"\"" + name + L"\"";
}

}  // namespace

std::wstring obstacleText(Obstacle obstacle, const std::wstring& name) {
    switch (obstacle) {
        case Obstacle::None:
            return {};
        case Obstacle::Missing:
            return subject(name) + L" ist nicht mehr da.";
        case Obstacle::Changed:
            return subject(name) + L" wurde inzwischen von einem anderen Programm verändert.";
        case Obstacle::Taken:
            return subject(name) + L" gibt es schon.";
        case Obstacle::TwiceTheSame:
            return subject(name) + L" käme zweimal vor.";
        case Obstacle::IllegalName:
            return subject(name) + L" ist als Dateiname nicht erlaubt.";
        case Obstacle::PathTooLong:
            return subject(name) + L" hätte einen zu langen Pfad.";
        case Obstacle::ScriptChanged:
            return L"Panorell.txt wurde inzwischen verändert oder kann nicht gelesen werden.";
        case Obstacle::OtherProgram:
            return L"Ein anderes Programm ändert gerade die Dateien des Ordners.";
        case Obstacle::Unfinished:
            return L"Eine frühere Änderung des Ordners ist noch nicht abgeschlossen; bitte die Übersicht neu "
                   L"öffnen.";
        case Obstacle::Denied:
            return subject(name) + L" darf nicht geändert werden.";
        case Obstacle::InUse:
            return subject(name) + L" ist in einem anderen Programm geöffnet.";
        case Obstacle::WriteProtected:
            return L"Der Datenträger ist schreibgeschützt.";
        case Obstacle::Full:
            return L"Auf dem Datenträger ist kein Platz mehr.";
        case Obstacle::Other:
            return subject(name) + L" konnte nicht geändert werden.";
    }
    return {};
}

}  // namespace files
