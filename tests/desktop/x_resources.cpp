// What the X server keeps for the programs on it, for tests that look for leaks.
//
// Usage: velmorin-x-resources PID
//
// Prints, for each kind of thing that the server keeps for connections of this process, its name and how many there
// are, a line each. Ends with status 1 where there is no such connection.

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <xcb/res.h>
#include <xcb/xcb.h>

namespace {

template <class Value>
using Reply = std::unique_ptr<Value, decltype(&std::free)>;

template <class Value>
Reply<Value> owned(Value* value) {
    return {value, &std::free};
}

using Counts = std::map<std::string, std::uint32_t>;

std::string nameOf(xcb_connection_t* connection, xcb_atom_t atom) {
    const auto reply = owned(xcb_get_atom_name_reply(connection, xcb_get_atom_name(connection, atom), nullptr));
    if (!reply) return std::to_string(atom);
    return {xcb_get_atom_name_name(reply.get()), static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get()))};
}

/// Whether the process behind a connection is this one. `client` is any number of its.
bool belongsTo(xcb_connection_t* connection, std::uint32_t client, std::uint32_t pid) {
    const xcb_res_client_id_spec_t spec{client, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const auto reply =
        owned(xcb_res_query_client_ids_reply(connection, xcb_res_query_client_ids(connection, 1, &spec), nullptr));
    if (!reply) return false;
    for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem > 0; xcb_res_client_id_value_next(&ids))
        if (xcb_res_client_id_value_value_length(ids.data) > 0 && *xcb_res_client_id_value_value(ids.data) == pid)
            return true;
    return false;
}

void count(xcb_connection_t* connection, std::uint32_t client, Counts& counts) {
    const auto reply = owned(
        xcb_res_query_client_resources_reply(connection, xcb_res_query_client_resources(connection, client), nullptr));
    if (!reply) return;
    for (auto types = xcb_res_query_client_resources_types_iterator(reply.get()); types.rem > 0;
         xcb_res_type_next(&types))
        counts[nameOf(connection, types.data->resource_type)] += types.data->count;
}

} // namespace

int main(int argumentCount, char** arguments) {
    const auto pid = argumentCount == 2 ? std::strtoul(arguments[1], nullptr, 10) : 0;
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    if (pid == 0 || xcb_connection_has_error(connection) != 0) return 2;
    const auto version =
        owned(xcb_res_query_version_reply(connection, xcb_res_query_version(connection, 1, 2), nullptr));
    const auto clients = owned(xcb_res_query_clients_reply(connection, xcb_res_query_clients(connection), nullptr));
    if (!version || !clients) return 2;
    Counts counts;
    for (auto client = xcb_res_query_clients_clients_iterator(clients.get()); client.rem > 0;
         xcb_res_client_next(&client))
        if (belongsTo(connection, client.data->resource_base, static_cast<std::uint32_t>(pid)))
            count(connection, client.data->resource_base, counts);
    for (const auto& [name, number] : counts)
        std::cout << name << ' ' << number << '\n';
    xcb_disconnect(connection);
    return counts.empty() ? 1 : 0;
}
