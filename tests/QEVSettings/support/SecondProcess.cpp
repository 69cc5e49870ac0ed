// SPDX-License-Identifier: MIT
#include "SecondProcess.hpp"

#include "QEVModels/AnalyzerPortsStore.hpp"
#include "TestAnalyzers.hpp"
#include "foundation/UserDefaults.hpp"
#include "support/RecordingPreferencesStore.hpp"

#include <gmock/gmock.h>
#include <sys/socket.h>
#include <unistd.h>

#include <sstream>
#include <stdexcept>

namespace QEVSettings {

using foundation::UserDefaults;
using QEVDependencies::QEVNetworkProtocolList;

namespace {

// A message is a packet: the verb, the key and the argument on lines of their own.
std::string received(int socket) {
  std::string packet(1 << 16, '\0');
  const auto size = ::recv(socket, packet.data(), packet.size(), 0);
  if (size <= 0) throw std::runtime_error("the other process is gone");
  packet.resize(static_cast<std::size_t>(size));
  return packet;
}

void send(int socket, const std::string& packet) {
  // A packet is never empty, because an empty one reads like a closed socket.
  if (::send(socket, (packet + '\n').data(), packet.size() + 1, MSG_NOSIGNAL) < 0) {
    throw std::runtime_error("the other process does not listen");
  }
}

std::string changeList(UserDefaults& store, const QEVNetworkProtocolList& factory,
                       std::istream& verb, const std::string& key, const std::string& argument) {
  const QEVModels::AnalyzerPortsStore ports(key, store);
  QEVNetworkProtocolList copies;
  for (const auto& record : factory) copies.push_back(*record->copied());
  auto list = ports.decode(copies);
  std::string what;
  std::size_t index = 0;
  verb >> what >> index;
  std::string answer;
  if (what == "ports") list.at(index)->protocolPorts = argument;
  if (what == "name") list.at(index)->protocolName = argument;
  if (what == "remove") list.pop_back();
  if (what == "append") {
    list.push_back(protocol(argument, "1", 1));
    answer = list.back()->id().text();
  }
  ports.encode(list);
  return answer;
}

std::string answerTo(const std::string& packet, UserDefaults& store,
                     const QEVNetworkProtocolList& factory) {
  std::istringstream lines(packet);
  std::string verb;
  std::string key;
  std::string argument;
  std::getline(lines, verb);
  std::getline(lines, key);
  std::getline(lines, argument);
  if (verb == "print") {
    const auto value = store.objectForKey(key);
    return value ? testing::PrintToString(*value) : "nothing";
  }
  if (verb == "bool") {
    store.setBool(argument == "1", key);
  } else if (verb == "integer") {
    store.setInteger(std::stoll(argument), key);
  } else if (verb == "string") {
    store.setObject(argument, key);
  } else if (verb.starts_with("font ")) {
    store.setObject(
        PreferenceDictionary{
            {"family", argument}, {"style", ""}, {"pointSize", std::stod(verb.substr(5))}},
        key);
  } else if (verb == "delete") {
    store.removeObject(key);
  } else {
    std::istringstream words(verb);
    return changeList(store, factory, words, key, argument);
  }
  return "";
}

int serve(int socket, const std::filesystem::path& path, const QEVNetworkProtocolList& factory) {
  const auto store = UserDefaults::open(path);
  for (;;) send(socket, answerTo(received(socket), *store, factory));
}

}  // namespace

SecondProcess::SecondProcess(const std::filesystem::path& path,
                             const QEVNetworkProtocolList& factory) {
  if (::socketpair(AF_UNIX, SOCK_SEQPACKET, 0, sockets_.data()) != 0)
    throw std::runtime_error("no sockets");
  process_ = std::make_unique<foundation::Child>([&] { return serve(sockets_[1], path, factory); });
  ::close(sockets_[1]);
}

SecondProcess::~SecondProcess() {
  process_.reset();
  ::close(sockets_[0]);
}

void SecondProcess::set(const std::string& key, const PreferenceValue& value) {
  if (const auto boolean = value.asBoolean()) {
    ask("bool", key, *boolean ? "1" : "0");
  } else if (const auto integer = value.asInteger()) {
    ask("integer", key, std::to_string(*integer));
  } else if (const auto* font = value.asDictionary()) {
    ask("font " + std::to_string(*font->find("pointSize")->second.asReal()), key,
        *font->find("family")->second.asString());
  } else {
    ask("string", key, *value.asString());
  }
}

std::string SecondProcess::ask(const std::string& verb, const std::string& key,
                               const std::string& argument) {
  send(sockets_[0], verb + '\n' + key + '\n' + argument);
  std::string answer = received(sockets_[0]);
  answer.pop_back();
  return answer;
}

}  // namespace QEVSettings
