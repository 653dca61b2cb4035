// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

/// The plant of the demo installation: a small water network.
namespace velt::demo {

struct Station {
    std::string_view name;
    std::string_view place;
};

inline constexpr std::array<Station, 8> Stations = {{
    {"RTU01", "Serbatoio Colle Alto"},
    {"RTU02", "Pozzo San Rocco"},
    {"RTU03", "Sollevamento Ponte Nuovo"},
    {"RTU04", "Centrale Valle Verde"},
    {"RTU05", "Depuratore Le Saline"},
    {"RTU06", "Partitore Monte Rosso"},
    {"RTU07", "Potabilizzatore Fonte Chiara"},
    {"RTU08", "Vasca Via del Mulino"},
}};

/// An alarm and the two ways in which it is described.
struct AlarmKind {
    std::string_view name;
    std::array<std::string_view, 2> details;
};

inline constexpr std::array<AlarmKind, 25> AlarmKinds = {{
    {"Livello alto", {"livello oltre la soglia di preallarme", "livello vicino allo sfioro"}},
    {"Livello basso", {"livello sotto la soglia di preallarme", "riserva antincendio intaccata"}},
    {"Livello minimo", {"blocco pompe per livello minimo", "vasca quasi vuota"}},
    {"Troppo pieno", {"sfioro in corso", "galleggiante di troppo pieno attivo"}},
    {"Pressione alta", {"pressione di mandata oltre soglia", "colpo d'ariete rilevato"}},
    {"Pressione bassa", {"pressione di rete insufficiente", "possibile rottura condotta"}},
    {"Portata nulla", {"nessuna portata con pompa in marcia", "valvola di ritegno bloccata"}},
    {"Portata eccessiva", {"portata oltre il massimo di zona", "possibile perdita a valle"}},
    {"Pompa 1 ferma", {"mancata marcia pompa 1", "arresto imprevisto pompa 1"}},
    {"Pompa 2 ferma", {"mancata marcia pompa 2", "arresto imprevisto pompa 2"}},
    {"Scatto termico pompa 1", {"relè termico intervenuto", "sovraccarico motore"}},
    {"Scatto termico pompa 2", {"relè termico intervenuto su P2", "sovraccarico motore P2"}},
    {"Mancanza rete", {"assenza tensione ENEL", "mancanza di una fase"}},
    {"Batteria scarica", {"tensione batteria sotto soglia", "batteria da sostituire"}},
    {"Gruppo elettrogeno", {"gruppo avviato", "mancato avviamento del gruppo"}},
    {"Porta aperta", {"accesso al locale quadri", "porta aperta oltre il tempo"}},
    {"Intrusione", {"sensore volumetrico attivo", "recinzione violata"}},
    {"Allagamento locale", {"sonda a pavimento bagnata", "pompa di aggottamento in marcia"}},
    {"Temperatura quadro", {"temperatura quadro oltre soglia", "ventilatore quadro guasto"}},
    {"Cloro residuo basso", {"cloro residuo sotto il minimo", "dosatore fermo"}},
    {"Cloro residuo alto", {"cloro residuo oltre il massimo", "dosaggio eccessivo"}},
    {"Torbidità alta", {"torbidità oltre soglia", "filtro da lavare"}},
    {"Guasto sonda", {"segnale 4-20 mA fuori campo", "sonda scollegata"}},
    {"Caduta comunicazione", {"nessuna risposta dalla stazione", "linea commutata occupata"}},
    {"Orologio non sincronizzato", {"scarto oltre 60 secondi", "sincronizzazione fallita"}},
}};

}  // namespace velt::demo
