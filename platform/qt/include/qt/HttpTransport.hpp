#pragma once

#include "sparkle/FeedTransport.hpp"
#include "sparkle/FileTransport.hpp"

#include <memory>

namespace qt {

// Fetches http://, https:// and file:// addresses through the event loop. Follows redirections, but
// never from https:// to http://. Sends no cookies, no language and no more of the system than the
// request's headers say. Made after the application and destroyed before it; main thread.
class HttpTransport final : public sparkle::FeedTransport {
public:
  HttpTransport();
  ~HttpTransport() override;

  [[nodiscard]] QEVSettings::Subscription fetch(const sparkle::FeedRequest& request,
                                                Completion completion) override;

private:
  struct Network;
  std::unique_ptr<Network> network_;
  sparkle::FileTransport files_;
};

}  // namespace qt
