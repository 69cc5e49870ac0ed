// SPDX-License-Identifier: MIT
#include "analyzers/AnalyzerError.hpp"

#include "QEVCommonTools/MessageText.hpp"
#include "QEVCommonTools/localized.hpp"
#include "QEVLog/QEVLog.hpp"
#include "viewkit/Animation.hpp"

#include <string>

namespace QEVSettings {

using namespace viewkit;
using QEVDependencies::ErrorState;
using QEVDependencies::QEVError;

namespace {

constexpr const char* kErrorTitle = "Error";

}  // namespace

std::optional<ErrorState> failureOf(const std::function<void()>& call) {
  try {
    call();
    return std::nullopt;
  } catch (const QEVError& error) {
    return ErrorState{.errorText = kErrorTitle, .errorDetails = error};
  } catch (const std::exception& error) {
    QEVLog::logMessage(std::string("an analyzer threw: ") + error.what(), "failureOf(_:)");
  } catch (...) {
    QEVLog::logMessage("an analyzer threw", "failureOf(_:)");
  }
  return ErrorState{.errorText = kErrorTitle, .errorDetails = std::nullopt};
}

void showErrorState(const ErrorState& state, const QEVDependencies::QEVNetworkProtocol& protocol) {
  withAnimation([&] {
    protocol.errorModel()->objectWillChange().announce();
    protocol.errorModel()->errorState = state;
  });
}

View analyzerErrorText(const ErrorState& state) {
  if (state.isEmpty()) return {};
  const std::string details =
      state.errorDetails ? "\n" + QEVCommonTools::localized(message(*state.errorDetails)) : "";
  return QEVCommonTools::messageText(state.errorText + details,
                                     QEVCommonTools::MessageKind::problem);
}

View analyzerErrorView(const std::exception_ptr& thrown) {
  return analyzerErrorText(
      failureOf([&] { std::rethrow_exception(thrown); }).value_or(ErrorState{}));
}

}  // namespace QEVSettings
