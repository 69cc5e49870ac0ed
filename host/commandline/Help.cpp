#include "commandline/Help.hpp"

namespace zorvantine {

std::string_view helpText() {
  return R"(Usage: zorvantine [--store FILE] COMMAND

The settings of the packet analyzer: in a window, and from the shell.

The window
  settings [--tab TAB] [WINDOW]    open it; also what happens without a COMMAND.
                                   Without a display, draw it into files instead
  run [WINDOW]                     open the main window, which opens the settings
  snapshot --out DIR [--tab TAB|all] [--appearance light|dark] [--scale 1|2] [WINDOW]
                                   draw it into DIR, one picture TAB.png a tab
  describe [--tab TAB] [--format text|json] [WINDOW]
                                   what is on a page, and where
    TAB     general, capture, proxy, analyze or appearance (the fonts)
    WINDOW  --no-proxy             leave the proxy's tab out
            --analyzers N          show N made-up analyzers instead of the real ones
            --language CODE        speak en, de, fr, es, ja, zh-Hans or ar

The preferences
  prefs list [--format text|json]  every key, with the type of its value
  prefs get KEY                    one value; data in base64
  prefs set KEY --string VALUE     store text, or with --int, --bool (true or false),
                                   --real or --data (base64) a value of that type
  prefs delete KEY                 remove a key
  prefs import FILE                take over every key of a property list, or none;
                                   what an older release wrote is brought up to date
  prefs export FILE [--format xml|binary]
                                   write every key to a property list
  prefs migrate                    bring what an older release stored up to date
  prefs watch                      print each change, until interrupted
  prefs verify                     check the store, and say how it is

The analyzers
  analyzers [--format text|json]   what is loaded: ids, keys, options, ports
  ports validate TEXT [--format text|json]
                                   put a list of ports in order; - reads it from
                                   standard input

Options
  --store FILE   another store than $XDG_CONFIG_HOME/zorvantine/preferences.sqlite
                 (~/.config without XDG_CONFIG_HOME)
  --help         this page
  --version      the version

Exit codes: 0 done, 1 no such key, 2 the command line is wrong, 3 the store or a
file could not be read or written.
)";
}

std::string_view versionText() { return ZORVANTINE_VERSION; }

}  // namespace zorvantine
