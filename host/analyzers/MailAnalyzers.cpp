// SPDX-License-Identifier: MIT
#include "analyzers/AnalyzerGroups.hpp"

namespace zorvantine {

std::vector<AnalyzerDescription> mailAnalyzers() {
  return {
      {
          .name = "smtp",
          .id = "CFDAE476-8513-4AA7-ABE7-C53259A692CE",
          .title = "SMTP",
          .description = "Follows a message from the first greeting to its acceptance or refusal.",
          .version = "2.7",
          .options = {keepCredentialsPrivate(),
                      {.name = "message_bodies",
                       .label = "Show message bodies",
                       .isOnByDefault = true}},
          .protocols = {{"SMTP", "25", Transport::tcp}, {"Submission", "587", Transport::tcp}},
      },
      {
          .name = "pop3",
          .id = "0E77DE5C-0019-4F70-B9AA-E1108428FE9B",
          .title = "POP3",
          .description = "Shows what a mail program fetched, and what it removed from the server.",
          .version = "1.8",
          .options = {keepCredentialsPrivate()},
          .protocols = {{"POP3", "110", Transport::tcp}},
      },
      {
          .name = "imap",
          .id = "C99B74C3-917E-4926-B0ED-E7A3E3DFFE5F",
          .title = "IMAP",
          .description = "Pairs each command with its answers, however many are under way at once.",
          .version = "2.0",
          .options = {keepCredentialsPrivate(),
                      {.name = "message_bodies",
                       .label = "Show message bodies",
                       .isOnByDefault = true}},
          .protocols = {{"IMAP", "143", Transport::tcp}},
      },
  };
}

}  // namespace zorvantine
