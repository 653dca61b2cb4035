// SPDX-License-Identifier: MIT
#include "demo/plantcatalog.h"

#include "demo/plant.h"

#include <array>
#include <cstdio>
#include <span>

namespace velt::demo {
namespace {

using enum PlantType;
using enum Course;
constexpr std::string_view Modes = "Automatico|Manuale|Locale|Fuori servizio";
constexpr std::string_view Events =
    "Avvio pompa|Arresto pompa|Livello alto|Livello basso|Ritorno rete|Mancanza rete|Nessun evento";

/// A variable without the station that it belongs to.
struct Row {
    PlantVariable variable;

    [[nodiscard]] Row array(std::size_t length) const {
        return with([=](PlantVariable& v) { v.length = length; });
    }
    [[nodiscard]] Row access(Access access) const {
        return with([=](PlantVariable& v) { v.access = access; });
    }
    [[nodiscard]] Row condition(Condition condition) const {
        return with([=](PlantVariable& v) { v.condition = condition; });
    }
    [[nodiscard]] Row words(std::string_view words) const {
        return with([=](PlantVariable& v) { v.words = words; });
    }
    [[nodiscard]] Row trend(std::string_view table, int group) const {
        return with([=](PlantVariable& v) {
            v.trend = table;
            v.trendGroup = group;
        });
    }

private:
    template <typename Change>
    [[nodiscard]] Row with(Change change) const {
        Row changed = *this;
        change(changed.variable);
        return changed;
    }
};

Row row(std::string_view folder, std::string_view name, std::string_view unit, PlantType type,
        Course course, double low = 0, double high = 1) {
    return {{.folder = folder,
             .name = std::string(name),
             .unit = unit,
             .type = type,
             .course = course,
             .low = low,
             .high = high}};
}

const Row Common[] = {
    row("", "Livello vasca", "m", R8, Analog, 0.8, 4.6).trend("Livello_vasca", 0),
    row("", "Portata uscita", "m³/h", R8, Analog, 12, 180).trend("Portata_uscita", 1),
    row("", "Pressione mandata", "bar", R4, Analog, 2.8, 6.4).trend("Pressione", 2),
    row("", "Temperatura acqua", "°C", R4, Analog, 9, 16).trend("Temperatura", 3),
    row("", "Volume erogato", "m³", I8, Counter, 184000, 90),
    row("", "Matricola", "", Text, Constant).words("TC-2061/B"),
    row("", "Modo di funzionamento", "", Text, Switch, 0, 3).words(Modes),
    row("", "Orologio", "", DateTime, Present),
    row("Alimentazione", "Tensione rete", "V", R4, Analog, 214, 238).trend("Tensione_rete", 3),
    row("Alimentazione", "Potenza attiva", "kW", R8, Analog, 3, 44).trend("Potenza_attiva", 3),
    row("Alimentazione", "Energia attiva", "kWh", UI4, Counter, 52000, 21),
    row("Alimentazione", "Tensione batteria", "V", R4, Swing, 11.8, 13.9)
        .condition(Condition::Limited),
    row("Alimentazione", "Presenza rete", "", Boolean, Constant, 1, 1),
    row("Quadro", "Temperatura", "°C", I1, Analog, -4, 41),
    row("Quadro", "Umidità", "%", UI1, Analog, 25, 90),
    row("Quadro", "Porta aperta", "", Boolean, Switch),
    row("Quadro", "Fondo scala livello", "m", R8, Constant, 5, 5).condition(Condition::Constant),
    row("Quadro", "Cicli programma", "", UI2, Counter, 0, 18000),
    row("Pompe/Pompa 1", "Marcia", "", Boolean, Switch),
    row("Pompe/Pompa 1", "Corrente", "A", R4, Analog, 0.4, 31)
        .condition(Condition::Faulty)
        .trend("Corrente_P1", 3),
    row("Pompe/Pompa 1", "Avviamenti", "", I4, Counter, 8100, 4),
    row("Pompe/Pompa 1", "Ultimo avviamento", "", DateTime, Since),
    row("Pompe/Pompa 2", "Marcia", "", Boolean, Switch),
    row("Pompe/Pompa 2", "Corrente", "A", R4, Analog, 0.4, 31).trend("Corrente_P2", 3),
    row("Pompe/Pompa 2", "Avviamenti", "", I4, Counter, 6400, 3),
    row("Pompe/Pompa 2", "Ultimo avviamento", "", DateTime, Since),
    row("Registri", "Ingressi digitali", "", Boolean, Switch).array(16),
    row("Registri", "Temperature", "°C", I1, Analog, -5, 45).array(4),
    row("Registri", "Byte di stato", "", UI1, Analog, 0, 255).array(8),
    row("Registri", "Ingressi analogici", "", I2, Analog, -32000, 32000).array(8),
    row("Registri", "Impulsi", "", UI2, Counter, 0, 3600).array(4),
    row("Registri", "Contatori", "", I4, Counter, 100000, 900).array(4),
    row("Registri", "Totalizzatori", "", UI4, Counter, 3000000, 1800).array(4),
    row("Registri", "Portate orarie", "m³/h", R4, Analog, 5, 170).array(24),
    row("Registri", "Livelli orari", "m", R8, Analog, 0.8, 4.6).array(24),
    row("Registri", "Date ultimi eventi", "", DateTime, Since).array(3),
    row("Registri", "Ultimi eventi", "", Text, Switch, 0, 6).array(3).words(Events),
    row("Registri", "Volumi parziali", "l", I8, Counter, 9e9, 40000).array(3),
    row("Comandi", "Livello di avvio", "m", R8, Constant, 0, 5).access(Access::Ranged),
    row("Comandi", "Pressione richiesta", "bar", R4, Constant, 0, 10).access(Access::Ranged),
    row("Comandi", "Ritardo avvio", "s", I2, Constant, 0, 3600).access(Access::Ranged),
    row("Comandi", "Pompe in servizio", "", UI1, Constant, 0, 2).access(Access::Ranged),
    row("Comandi", "Consenso marcia", "", Boolean, Constant, 1, 1).access(Access::Writable),
    row("Comandi", "Nota operatore", "", Text, Constant)
        .access(Access::Writable)
        .words("Nessuna nota"),
    row("Comandi", "Prossima manutenzione", "", DateTime, Since).access(Access::Writable),
    row("Comandi", "Fasce orarie", "", I4, Constant, 6, 6).array(4).access(Access::Writable),
    row("Comandi", "Curva di pressione", "bar", R4, Constant, 0, 10)
        .array(6)
        .access(Access::Ranged),
    row("Riserva", "Canale 15", "", R4, Analog, 0, 1).access(Access::Refused),
    row("Riserva", "Canale 16", "", R4, Analog, 0, 1).access(Access::Refused),
};

// What makes each station its own.
const Row Colle[] = {
    row("Vasca 2", "Livello", "m", R8, Analog, 0.8, 4.6).trend("Livello_vasca_2", 0),
    row("Vasca 2", "Valvola aperta", "", Boolean, Switch),
    row("", "Portata ingresso", "m³/h", R8, Analog, 20, 160).trend("Portata_ingresso", 1),
};
const Row Pozzo[] = {
    row("Falda", "Livello statico", "m", R8, Analog, -38, -31).trend("Livello_falda", 0),
    row("Falda", "Conducibilità", "µS/cm", UI2, Analog, 320, 610),
};
const Row Sollevamento[] = {
    row("", "Pressione aspirazione", "bar", R4, Analog, 0.3, 1.9).trend("Aspirazione", 2),
    row("Pompe/Pompa 3", "Marcia", "", Boolean, Switch),
    row("Pompe/Pompa 3", "Corrente", "A", R4, Analog, 0.4, 31).trend("Corrente_P3", 3),
};
const Row Centrale[] = {
    row("Turbina", "Velocità", "giri/min", I2, Analog, 740, 760),
    row("Turbina", "Potenza", "kW", R8, Analog, 40, 310).trend("Potenza_turbina", 3),
    row("Turbina", "Salto", "m", R4, Analog, 61, 64).trend("Salto", 0),
};
const Row Depuratore[] = {
    row("Ossidazione/Linea A", "Ossigeno disciolto", "mg/l", R4, Analog, 0.6, 3.1)
        .condition(Condition::Faulty)
        .trend("Ossigeno_A", 2),
    row("Ossidazione/Linea B", "Ossigeno disciolto", "mg/l", R4, Analog, 0.6, 3.1)
        .trend("Ossigeno_B", 2),
    row("Scarico", "pH", "", R8, Analog, 6.8, 7.9).trend("pH", 2),
    row("Scarico", "Torbidità", "NTU", R8, Swing, 0, 40).condition(Condition::Limited),
};
const Row Partitore[] = {
    row("Ramo nord", "Portata", "m³/h", R8, Analog, 4, 70).trend("Portata_nord", 1),
    row("Ramo sud", "Portata", "m³/h", R8, Analog, 4, 70).trend("Portata_sud", 1),
    row("Ramo sud", "Apertura valvola", "%", UI1, Analog, 0, 100),
};
const Row Potabilizzatore[] = {
    row("Trattamento", "Cloro residuo", "mg/l", R8, Analog, 0.08, 0.31).trend("Cloro_residuo", 2),
    row("Trattamento", "Torbidità", "NTU", R8, Analog, 0.1, 1.4).trend("Torbidita", 2),
    row("Trattamento", "Dosaggio", "ml/min", R4, Constant, 0, 50).access(Access::Ranged),
};
const Row Mulino[] = {
    row("", "Livello sfioro", "cm", I2, Swing, 0, 60).condition(Condition::Limited),
    row("", "Pioggia", "mm/h", R4, Analog, 0, 9).condition(Condition::Faulty).trend("Pioggia", 1),
};

const std::array<std::span<const Row>, Stations.size()> Own = {
    {Colle, Pozzo, Sollevamento, Centrale, Depuratore, Partitore, Potabilizzatore, Mulino}};

const Row Server[] = {
    row("Sistema", "Processore", "%", R4, Analog, 2, 35),
    row("Sistema", "Memoria libera", "MB", UI4, Analog, 900, 2300),
    row("Sistema", "Spazio su disco", "MB", I8, Analog, 81000, 81900),
    row("Sistema", "Orologio", "", DateTime, Present),
    row("Sistema", "Nome", "", Text, Constant).words("Server di telecontrollo"),
    row("Modem/Linea 1", "Livello segnale", "dBm", I1, Analog, -109, -64),
    row("Modem/Linea 1", "Impegnata", "", Boolean, Switch),
    row("Modem/Linea 2", "Livello segnale", "dBm", I1, Analog, -109, -64),
    row("Modem/Linea 2", "Impegnata", "", Boolean, Constant, 1, 1),
};
// Of the calls to each station.
const Row Calls[] = {
    row("", "Chiamate", "", UI2, Counter, 0, 6),
    row("", "Chiamate fallite", "", UI2, Counter, 0, 0.2),
    row("", "Byte ricevuti", "", I8, Counter, 700000, 51000),
    row("", "Tempo di risposta", "ms", R4, Analog, 240, 1900),
    row("", "Ultima chiamata", "", DateTime, Since),
};

/// The same text gives the same seed on every machine.
std::uint64_t seedOf(std::string_view text, std::uint64_t seed) {
    std::uint64_t hash = 14695981039346656037u ^ seed;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
    return hash;
}

PlantVariable variable(const Row& row, std::string_view folder, std::string_view owner,
                       std::uint64_t seed) {
    PlantVariable v = row.variable;
    std::string id = std::string(owner) + "/" + std::string(folder) + "/";
    // The switch of a pump and the moment when it last changed belong together.
    const bool ofSwitch = v.course == Switch || v.course == Since;
    id += v.length == 0 && ofSwitch && folder.starts_with("Pompe") ? "Marcia" : v.name;
    v.folder = folder;
    v.seed = seedOf(id, seed);
    return v;
}

}  // namespace

std::vector<PlantStation> plantStations(std::uint64_t seed) {
    std::vector<PlantStation> stations;
    for (std::size_t i = 0; i < Stations.size(); ++i) {
        PlantStation station{std::string(Stations[i].name), std::string(Stations[i].place), {}};
        for (const Row& row : Common)
            station.variables.push_back(variable(row, row.variable.folder, station.name, seed));
        for (const Row& row : Own[i])
            station.variables.push_back(variable(row, row.variable.folder, station.name, seed));
        stations.push_back(std::move(station));
    }
    return stations;
}

std::vector<PlantVariable> serverVariables(std::uint64_t seed) {
    std::vector<PlantVariable> variables;
    for (const Row& row : Server)
        variables.push_back(variable(row, row.variable.folder, "server", seed));
    for (const Station& station : Stations)
        for (const Row& row : Calls)
            variables.push_back(variable(row, station.name, "server", seed));
    return variables;
}

std::vector<PlantStation> loadStations(std::size_t stations, std::size_t variables,
                                       std::uint64_t seed) {
    std::vector<PlantStation> all(stations);
    std::array<char, 32> text{};
    for (std::size_t s = 0; s < stations; ++s) {
        std::snprintf(text.data(), text.size(), "RTU%02zu", s + 1);
        all[s].name = text.data();
        all[s].place = "Stazione di prova";
        all[s].variables.reserve(variables);
        for (std::size_t v = 0; v < variables; ++v) {
            std::snprintf(text.data(), text.size(), "Misura %04zu", v + 1);
            // Counts one up each second: who receives it can tell whether a value is the newest.
            all[s].variables.push_back({.name = text.data(),
                                        .course = Counter,
                                        .low = static_cast<double>(v),
                                        .high = 3600.0,
                                        .seed = seed});
        }
    }
    return all;
}

}  // namespace velt::demo
