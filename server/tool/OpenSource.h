#pragma once

#include <chrono>
#include <memory>

#include "server/core/accounts/PasswordCipher.h"
#include "server/core/sessions/DataSource.h"
#include "server/core/sql/Query.h"
#include "server/engines/Engines.h"
#include "server/tool/Arguments.h"
#include "server/tool/Tool.h"

namespace tool {

// The data source that an option names. Raises kSourceUnknown or kSourceUnreadable.
inline server::DataSource FindSource(const Arguments& arguments, const Surroundings& surroundings,
                                     std::string_view option) {
  return server::DataSources(surroundings.home).Find(arguments.Value(option));
}

// A data source opened for work, with the cipher of its passwords.
struct OpenSource {
  OpenSource(const Arguments& arguments, const Surroundings& surroundings,
             std::string_view option = "--source")
      : source(FindSource(arguments, surroundings, option)),
        engine(server::OpenEngine(source, std::chrono::seconds(5))),
        passwords(server::ReadKey(source)) {}

  server::DataSource source;
  std::unique_ptr<server::Engine> engine;
  server::PasswordCipher passwords;
};

}  // namespace tool
