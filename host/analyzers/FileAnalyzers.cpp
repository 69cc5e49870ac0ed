// SPDX-License-Identifier: MIT
#include "analyzers/AnalyzerGroups.hpp"

namespace zorvantine {

std::vector<AnalyzerDescription> fileAnalyzers() {
  return {
      {
          .name = "ftp",
          .id = "279561AF-86C7-4572-90A3-81F07CFFAD94",
          .title = "FTP",
          .description =
              "Joins the commands of a session with the data connections that they open.",
          .version = "2.3",
          .options = {{.name = "data_connections",
                       .label = "Follow data connections",
                       .isOnByDefault = true},
                      keepCredentialsPrivate()},
          .protocols = {{"FTP", "21", Transport::tcp}, {"FTP data", "20", Transport::tcp}},
      },
      {
          .name = "tftp",
          .id = "603CE12F-39A6-4E5D-836F-3CBFEE3390A2",
          .title = "TFTP",
          .description = "Puts a file together from its numbered blocks.",
          .protocols = {{"TFTP", "69", Transport::udp}},
      },
      {
          .name = "smb",
          .id = "66148162-9FAE-412F-AB95-B6BF13254C06",
          .title = "SMB",
          .description =
              "Shows which shares and files were opened, read and written, and how long each took.",
          .version = "4.0",
          .options = {keepCredentialsPrivate(),
                      {.name = "answer_times",
                       .label = "Show answer times",
                       .isOnByDefault = true}},
          .protocols = {{"SMB", "445", Transport::tcp},
                        {"NetBIOS session", "139", Transport::tcp},
                        {"NetBIOS names", "137", Transport::udp},
                        {"NetBIOS datagrams", "138", Transport::udp}},
      },
  };
}

}  // namespace zorvantine
