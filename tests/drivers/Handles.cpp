#include "tests/drivers/Handles.h"

#include <odbcinst.h>

#include <algorithm>
#include <cstdlib>
#include <mutex>

namespace imptable::scripted {
namespace {

/// Everything that is alive; calls on different handles may come from different threads.
struct Roots {
  std::mutex mutex;
  std::vector<std::unique_ptr<Environment>> environments;
};

Roots& AllRoots() {
  static Roots roots;
  return roots;
}

template <typename T>
void Erase(std::vector<std::unique_ptr<T>>& owned, const T* one) {
  std::erase_if(owned, [one](const std::unique_ptr<T>& each) { return each.get() == one; });
}

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string SettingOf(const std::string& data_source, const char* key, const char* variable) {
  const std::string from_environment = Variable(variable);
  if (!from_environment.empty()) return from_environment;
  char value[1024] = "";
  SQLGetPrivateProfileString(data_source.c_str(), key, "", value, sizeof value, "odbc.ini");
  return value;
}

/// The script to play until a data source is named. A faulty script counts as an empty one: the
/// connection reads it again and reports the fault.
std::shared_ptr<const Script> EarlyScript() {
  const std::string path = Variable("SCRIPTED_DRIVER_SCRIPT");
  try {
    return std::make_shared<const Script>(
        LoadScript(path.empty() ? Variable("SCRIPTED_DRIVER_EARLY_SCRIPT") : path));
  } catch (const ScriptFault&) {
    return std::make_shared<const Script>();
  }
}

std::string EarlyLogPath() {
  const std::string path = Variable("SCRIPTED_DRIVER_LOG");
  return path.empty() ? Variable("SCRIPTED_DRIVER_EARLY_LOG") : path;
}

}  // namespace

Environment::Environment() : own_playback(EarlyScript()), own_log(EarlyLogPath()) {
  playback = &own_playback;
  log = &own_log;
}

Connection::Connection(const Handle& environment)
    : own_playback(std::make_shared<const Script>(environment.playback->script())),
      own_log(EarlyLogPath()) {
  playback = &own_playback;
  log = &own_log;
}

void Connection::PlayDataSource(const std::string& data_source) {
  own_log = CallLog(SettingOf(data_source, "Log", "SCRIPTED_DRIVER_LOG"));
  own_playback = Playback(std::make_shared<const Script>(
      LoadScript(SettingOf(data_source, "Script", "SCRIPTED_DRIVER_SCRIPT"))));
}

Statement::Statement(Handle& connection) {
  playback = connection.playback;
  log = connection.log;
}

Environment* NewEnvironment() {
  Roots& roots = AllRoots();
  const std::lock_guard lock(roots.mutex);
  return roots.environments.emplace_back(std::make_unique<Environment>()).get();
}

void Release(Environment* environment) {
  Roots& roots = AllRoots();
  const std::lock_guard lock(roots.mutex);
  Erase(roots.environments, environment);
}

Connection* NewConnection(Environment& environment) {
  const std::lock_guard lock(AllRoots().mutex);
  return environment.connections.emplace_back(std::make_unique<Connection>(environment)).get();
}

void Release(Connection* connection) {
  Roots& roots = AllRoots();
  const std::lock_guard lock(roots.mutex);
  for (auto& environment : roots.environments) Erase(environment->connections, connection);
}

Statement* NewStatement(Connection& connection) {
  const std::lock_guard lock(AllRoots().mutex);
  return connection.statements.emplace_back(std::make_unique<Statement>(connection)).get();
}

void Release(Statement* statement) {
  Roots& roots = AllRoots();
  const std::lock_guard lock(roots.mutex);
  for (auto& environment : roots.environments) {
    for (auto& connection : environment->connections) Erase(connection->statements, statement);
  }
}

}  // namespace imptable::scripted
