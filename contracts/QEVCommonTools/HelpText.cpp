// SPDX-License-Identifier: MIT
#include "HelpText.hpp"

#include "QEVCommonTools/PlainText.hpp"
#include "QEVCommonTools/localized.hpp"

namespace QEVCommonTools {

HelpText HelpText::at(QEVHelpAnchor anchor) {
  switch (anchor) {
    case QEVHelpAnchor::settingsGeneral:
      return {.title = localized("General settings"),
              .paragraphs = {
                  localized("Appearance applies to every window at once. Auto follows the desktop "
                            "and changes with it."),
                  localized("The packet time zone is the one in which the time of every packet is "
                            "shown. The packets themselves are not changed."),
                  localized(
                      "Updates can be downloaded only while they are checked for. The system "
                      "profile holds the system's version and architecture and nothing about you."),
              }};
    case QEVHelpAnchor::settingsCapture:
      return {.title = localized("Capture settings"),
              .paragraphs = {
                  localized("These settings hold for the next capture that you start; one that is "
                            "running keeps its own."),
                  formatted(localized("Promiscuous mode also records packets that are meant for "
                                      "other machines. The snapshot length is how much of each "
                                      "packet is kept: %@ bytes keep all of it."),
                            {"262144"}),
                  localized("The capture filter decides which packets are recorded at all, for "
                            "instance “tcp port 443” or “host 192.0.2.7”. A larger buffer helps "
                            "where packets are lost under load."),
                  localized("A ring of files limits the space on disk: when the last file is full, "
                            "the first one is written anew."),
              }};
    case QEVHelpAnchor::proxy:
      return {
          .title = localized("MITM Proxy"),
          .paragraphs = {
              localized("Programs that use the listening address as their proxy send their traffic "
                        "through the analyzer. On 127.0.0.1 only this machine can reach it."),
              localized("To look into TLS connections the proxy answers in the server's name with "
                        "a certificate of its own. The program under test has to trust that "
                        "certificate; never install it on a machine that others use."),
          }};
    case QEVHelpAnchor::settingsAnalyzers:
      return {
          .title = localized("Analyzers"),
          .paragraphs = {
              localized("Choose an analyzer on the left, with the mouse or with the arrow keys. "
                        "Every change takes effect at once."),
              localized(
                  "Ports are written as numbers and ranges, for instance “80, 8000-8010”. A slip "
                  "is put right and told under the list; a list without any port is not taken."),
              localized("Reset brings back the ports that the analyzer came with."),
          }};
    case QEVHelpAnchor::settingsFonts:
      return {.title = localized("Fonts"),
              .paragraphs = {
                  localized("Each font is used in the part of the main window that its row names. "
                            "The sample shows the font's name and size, drawn in the font itself."),
                  localized("The console shows packets as columns of characters: they line up only "
                            "in a monospaced font."),
              }};
  }
  return {};
}

}  // namespace QEVCommonTools
