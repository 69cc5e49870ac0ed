// SPDX-License-Identifier: MIT
#include "qt/HttpTransport.hpp"

#include "QEVSettings/preferences/HostIdentity.hpp"
#include "sparkle/reason.hpp"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>
#include <QTimer>
#include <QUrl>
#include <utility>

namespace qt {

namespace {

using foundation::Error;
using foundation::Result;

// How many bytes of an answer Qt may buffer, so that an endless answer does not fill the memory.
constexpr qint64 kReadBufferSize = qint64{256} * 1024;

QByteArray userAgent() {
  const auto& host = QEVSettings::HostIdentity::current();
  return QByteArray::fromStdString(host.version.empty() ? host.id : host.id + '/' + host.version);
}

QNetworkRequest networkRequest(const QUrl& url, const sparkle::FeedRequest& request) {
  QNetworkRequest result(url);
  // Qt would tell its own version of these otherwise, the user's language among them.
  result.setRawHeader("User-Agent", userAgent());
  result.setRawHeader("Accept-Language", "*");
  result.setRawHeader("Accept-Encoding", "identity");
  for (const auto& [name, value] : request.headers) {
    result.setRawHeader(QByteArray::fromStdString(name), QByteArray::fromStdString(value));
  }
  result.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                      QNetworkRequest::NoLessSafeRedirectPolicy);
  result.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  result.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  result.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  result.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  return result;
}

Error badStatus(int status) {
  return sparkle::reason("the server answers with the code %1", {std::to_string(status)});
}

// A fetch in progress. Its reply owns it.
class Fetch final : public QObject {
public:
  Fetch(QNetworkReply* reply, const sparkle::FeedRequest& request,
        sparkle::FeedTransport::Completion completion)
      : QObject(reply),
        reply_(reply),
        longestAnswer_(request.longestAnswer),
        completion_(std::move(completion)) {
    reply->setReadBufferSize(kReadBufferSize);
    connect(reply, &QNetworkReply::readyRead, this, [this] { read(); });
    connect(reply, &QNetworkReply::finished, this, [this] { finish(); });
    QTimer::singleShot(request.patience, this,
                       [this] { fail("the server takes too long to answer"); });
  }

  void giveUp() {
    completion_ = nullptr;
    reply_->abort();
  }

private:
  void fail(const char* reason) {
    if (!problem_) problem_ = sparkle::reason(reason);
    reply_->abort();
  }

  void read() {
    if (problem_ || !completion_) return;
    body_ += reply_->readAll().toStdString();
    if (body_.size() > longestAnswer_) fail("the answer is longer than it may be");
  }

  Result<std::string> outcome() {
    if (problem_) return *problem_;
    const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status >= 400) return badStatus(status);
    if (reply_->error() != QNetworkReply::NoError)
      return Error{reply_->errorString().toStdString()};
    if (status != 200) return badStatus(status);
    return std::move(body_);
  }

  void finish() {
    read();
    reply_->deleteLater();
    if (const auto completion = std::exchange(completion_, nullptr)) completion(outcome());
  }

  QNetworkReply* reply_;
  std::size_t longestAnswer_;
  sparkle::FeedTransport::Completion completion_;
  std::string body_;
  std::optional<Error> problem_;
};

}  // namespace

struct HttpTransport::Network {
  QNetworkAccessManager manager;
};

HttpTransport::HttpTransport() : network_(std::make_unique<Network>()) {}

HttpTransport::~HttpTransport() = default;

QEVSettings::Subscription HttpTransport::fetch(const sparkle::FeedRequest& request,
                                               Completion completion) {
  const QUrl url(QString::fromStdString(request.address));
  // The file transport fetches file:// addresses and refuses all others.
  if (url.scheme() != "http" && url.scheme() != "https")
    return files_.fetch(request, std::move(completion));

  QNetworkReply* const reply = network_->manager.get(networkRequest(url, request));
  const QPointer<Fetch> fetch(new Fetch(reply, request, std::move(completion)));
  return QEVSettings::Subscription([fetch] {
    if (fetch) fetch->giveUp();
  });
}

}  // namespace qt
