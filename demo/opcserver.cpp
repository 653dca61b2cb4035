// SPDX-License-Identifier: MIT
#include "demo/opcserver.h"

#include "demo/serverport.h"
#include "demo/uaerror.h"
#include "demo/uavalue.h"

#include <open62541/server.h>
#include <open62541/server_config_default.h>

#include <array>
#include <cstdarg>
#include <cstdio>
#include <stop_token>
#include <thread>
#include <utility>

namespace velt::demo {
namespace {

constexpr double TickInterval = 20.0;  // ms
constexpr const char* Space = "urn:velt:demo:plant";

/// Passes errors on to the server's owner. Most warnings, and all errors of the network, are about
/// clients that have gone; a server that cannot listen does not start.
void logError(void* context, UA_LogLevel level, UA_LogCategory category, const char* text,
              va_list args) {
    const auto& log = *static_cast<const std::function<void(const std::string&)>*>(context);
    if (level < UA_LOGLEVEL_ERROR || category == UA_LOGCATEGORY_NETWORK || !log) return;
    std::array<char, 512> line{};
    std::vsnprintf(line.data(), line.size(), text, args);
    log(line.data());
}

struct ServerDelete {
    void operator()(UA_Server* server) const { UA_Server_delete(server); }
};

}  // namespace

struct OpcServer::Impl {
    Impl(OpcServerOptions given, std::vector<std::unique_ptr<ServerPart>> given_parts)
        : options(std::move(given)), parts(std::move(given_parts)) {
        if (options.port != 0 && !isPortFree(options.port))
            throw RuntimeError(ErrorNumber::PathAccess,
                               "La porta " + std::to_string(options.port) + " è già in uso");
        port = options.port != 0 ? options.port : freePort();
        makeServer();
        check(UA_Server_run_startup(server.get()), "Avvio del server OPC");
        // Ends the waits for clients, so that the parts tick and a stop is seen.
        check(UA_Server_addRepeatedCallback(
                  server.get(), [](UA_Server*, void*) {}, nullptr, TickInterval, nullptr),
              "Avvio del server OPC");
        thread = std::jthread([this](const std::stop_token& stop) { run(stop); });
    }

    void makeServer() {
        UA_ServerConfig config{};
        logger = {logError, &options.log, nullptr};
        config.logging = &logger;
        try {
            configure(config);
        } catch (...) {
            UA_ServerConfig_clean(&config);
            throw;
        }
        server.reset(UA_Server_newWithConfig(&config));  // takes the configuration in any case
        if (!server) throw RuntimeError(ErrorNumber::InvalidCall, "Avvio del server OPC");
        const std::uint16_t space = UA_Server_addNamespace(server.get(), Space);
        for (const auto& part : parts) part->addTo(*server, space);
    }

    void configure(UA_ServerConfig& config) {
        if (options.security)
            secure(config, *options.security);
        else
            check(UA_ServerConfig_setMinimal(&config, 0, nullptr), "Configurazione del server");
        // Loopback alone: the library's choice would be every address. As a number, since a machine
        // may know no "localhost".
        UA_Array_delete(config.serverUrls, config.serverUrlsSize, &UA_TYPES[UA_TYPES_STRING]);
        const std::string url = endpoint();
        config.serverUrls = static_cast<UA_String*>(UA_Array_new(1, &UA_TYPES[UA_TYPES_STRING]));
        config.serverUrlsSize = 1;
        config.serverUrls[0] = UA_String_fromChars(url.c_str());
        UA_ApplicationDescription& description = config.applicationDescription;
        UA_String_clear(&description.applicationUri);
        description.applicationUri = UA_String_fromChars(ServerUri);
        UA_LocalizedText_clear(&description.applicationName);
        description.applicationName = UA_LOCALIZEDTEXT_ALLOC("it", "Impianto dimostrativo");
        // Benchmarks go as fast as this.
        config.publishingIntervalLimits.min = 20.0;
        config.samplingIntervalLimits.min = 10.0;
    }

    void run(const std::stop_token& stop) {
        while (!stop.stop_requested()) iterate();
        if (hasClients()) announceEnd();
        UA_Server_run_shutdown(server.get());
    }

    void iterate() {
        try {
            for (const auto& part : parts) part->tick();
        } catch (const RuntimeError& error) {
            if (options.log) options.log(error.Description());  // the plant goes on
        }
        UA_Server_run_iterate(server.get(), true);
    }

    [[nodiscard]] bool hasClients() const {
        return UA_Server_getStatistics(server.get()).ss.currentSessionCount > 0;
    }

    /// Lets those who watch the server's state see it.
    void announceEnd() {
        using namespace std::chrono;
        auto seconds =
            static_cast<UA_UInt32>(ceil<std::chrono::seconds>(options.shutdownNotice).count());
        UA_Variant value;
        UA_Variant_setScalar(&value, &seconds, &UA_TYPES[UA_TYPES_UINT32]);
        UA_Server_writeValue(server.get(), ns0(UA_NS0ID_SERVER_SERVERSTATUS_SECONDSTILLSHUTDOWN),
                             value);
        const auto end = steady_clock::now() + options.shutdownNotice;
        while (hasClients() && steady_clock::now() < end) iterate();
    }

    [[nodiscard]] std::string endpoint() const {
        return "opc.tcp://127.0.0.1:" + std::to_string(port);
    }

    OpcServerOptions options;
    std::vector<std::unique_ptr<ServerPart>> parts;
    std::uint16_t port = 0;
    UA_Logger logger{};
    std::unique_ptr<UA_Server, ServerDelete> server;
    std::jthread thread;  // last: it uses all the others
};

OpcServer::OpcServer(OpcServerOptions options, std::vector<std::unique_ptr<ServerPart>> parts)
    : impl_(std::make_unique<Impl>(std::move(options), std::move(parts))) {}

OpcServer::~OpcServer() = default;

std::string OpcServer::endpoint() const { return impl_->endpoint(); }
std::uint16_t OpcServer::port() const { return impl_->port; }

}  // namespace velt::demo
