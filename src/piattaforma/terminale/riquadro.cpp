#include "piattaforma/terminale/riquadro.h"

#include <cstdio>
#include <cstring>

#include "piattaforma/testo.h"

namespace piattaforma::terminale {

namespace {

int PulsantiDelloStile(unsigned stile, int risposta[MASSIMO_PULSANTI]) {
  switch (stile & 0xF) {
    case MB_OKCANCEL:
      risposta[0] = IDOK, risposta[1] = IDCANCEL;
      return 2;
    case MB_YESNOCANCEL:
      risposta[0] = IDYES, risposta[1] = IDNO, risposta[2] = IDCANCEL;
      return 3;
    case MB_YESNO:
      risposta[0] = IDYES, risposta[1] = IDNO;
      return 2;
    default:
      risposta[0] = IDOK;
      return 1;
  }
}

bool HaPulsante(const int risposta[], int pulsanti, int cercata) {
  for (int i = 0; i < pulsanti; ++i)
    if (risposta[i] == cercata) return true;
  return false;
}

void AggiungiRiga(Impaginazione& imp, size_t inizio, size_t lunghezza) {
  if (imp.righe == RIGHE_MASSIME_TESTO) {
    imp.troncato = true;
    return;
  }
  imp.riga[imp.righe++] = {static_cast<uint32_t>(inizio), static_cast<uint32_t>(lunghezza)};
}

// Lines of at most `larghezza` characters for the paragraph [inizio, fine).
void SpezzaParagrafo(const char* testo, size_t inizio, size_t fine, int larghezza,
                     Impaginazione& imp) {
  size_t pos = inizio;
  do {
    size_t taglio = pos, passo = 0;
    for (int n = 0; taglio < fine && n < larghezza; ++n) {
      ProssimoCarattere(testo + taglio, fine - taglio, passo);
      taglio += passo;
    }
    if (taglio >= fine) {
      AggiungiRiga(imp, pos, fine - pos);
      return;
    }
    // Break at the last space that keeps the line within its width; a word
    // longer than a line is cut where the line ends.
    size_t spazio = taglio;
    while (spazio > pos && testo[spazio] != ' ') --spazio;
    if (spazio > pos) {
      AggiungiRiga(imp, pos, spazio - pos);
      pos = spazio;
    } else {
      AggiungiRiga(imp, pos, taglio - pos);
      pos = taglio;
    }
    while (pos < fine && testo[pos] == ' ') ++pos;
  } while (pos < fine && !imp.troncato);
}

// The paragraphs of the text, one per call of `fai(inizio, fine)`; a CR
// before a line break belongs to the break.
template <typename Azione>
void PerOgniParagrafo(const char* testo, Azione fai) {
  const size_t lunghezza = std::strlen(testo);
  size_t inizio = 0;
  while (true) {
    const char* a_capo =
        static_cast<const char*>(std::memchr(testo + inizio, '\n', lunghezza - inizio));
    size_t fine = a_capo ? static_cast<size_t>(a_capo - testo) : lunghezza;
    const size_t successivo = fine + 1;
    if (fine > inizio && testo[fine - 1] == '\r') --fine;
    fai(inizio, fine);
    if (!a_capo) return;
    inizio = successivo;
  }
}

}  // namespace

const char* EtichettaPulsante(int risposta, const PoliticaInterfaccia& politica) {
  const char* etichetta = nullptr;
  const char* neutra = "OK";
  switch (risposta) {
    case IDYES:
      etichetta = politica.etichetta_si, neutra = "Yes";
      break;
    case IDNO:
      etichetta = politica.etichetta_no, neutra = "No";
      break;
    case IDCANCEL:
      etichetta = politica.etichetta_annulla, neutra = "Cancel";
      break;
    default:
      etichetta = politica.etichetta_ok;
      break;
  }
  return etichetta ? etichetta : neutra;
}

int LarghezzaPulsante(int risposta, const PoliticaInterfaccia& politica) {
  const char* etichetta = EtichettaPulsante(risposta, politica);
  return static_cast<int>(ContaCaratteri(etichetta, std::strlen(etichetta))) + 4;
}

void ImpaginaRiquadro(const char* testo, const char* titolo, unsigned stile, Impaginazione& imp,
                      const PoliticaInterfaccia& politica) {
  imp = Impaginazione{};
  if (testo == nullptr) testo = "";
  if (titolo == nullptr) titolo = "";

  imp.pulsanti = PulsantiDelloStile(stile, imp.risposta);
  int larghezza_pulsanti = 3 * (imp.pulsanti - 1);
  for (int i = 0; i < imp.pulsanti; ++i) {
    imp.etichetta[i] = EtichettaPulsante(imp.risposta[i], politica);
    larghezza_pulsanti += LarghezzaPulsante(imp.risposta[i], politica);
  }

  int larghezza = larghezza_pulsanti;
  const int larghezza_titolo = static_cast<int>(ContaCaratteri(titolo, std::strlen(titolo))) + 2;
  if (larghezza_titolo > larghezza) larghezza = larghezza_titolo;
  PerOgniParagrafo(testo, [&](size_t inizio, size_t fine) {
    const int caratteri = static_cast<int>(ContaCaratteri(testo + inizio, fine - inizio));
    if (caratteri > larghezza) larghezza = caratteri;
  });
  if (larghezza > LARGHEZZA_MASSIMA_TESTO) larghezza = LARGHEZZA_MASSIMA_TESTO;
  imp.larghezza_testo = larghezza;

  PerOgniParagrafo(testo, [&](size_t inizio, size_t fine) {
    if (!imp.troncato) SpezzaParagrafo(testo, inizio, fine, larghezza, imp);
  });

  imp.larghezza = larghezza + 2 * (MARGINE_RIQUADRO + 1);
  imp.altezza = imp.righe + 5;
  imp.x = (COLONNE_SCHERMO - imp.larghezza) / 2;
  imp.y = (RIGHE_SCHERMO - imp.altezza) / 2;
  imp.colonna_testo = MARGINE_RIQUADRO + 1;
  imp.riga_testo = 2;
  imp.riga_pulsanti = imp.righe + 3;
  int colonna = (imp.larghezza - larghezza_pulsanti) / 2;
  for (int i = 0; i < imp.pulsanti; ++i) {
    imp.colonna_pulsante[i] = colonna;
    colonna += LarghezzaPulsante(imp.risposta[i], politica) + 3;
  }
}

int RispostaDaTasto(unsigned stile, const INPUT_RECORD& evento,
                    const PoliticaInterfaccia& politica) {
  if (evento.EventType != KEY_EVENT || !evento.Event.KeyEvent.bKeyDown) return 0;
  const KEY_EVENT_RECORD& tasto = evento.Event.KeyEvent;
  if (tasto.dwControlKeyState & (MASCHERA_CTRL | MASCHERA_ALT)) return 0;
  int risposta[MASSIMO_PULSANTI] = {};
  const int pulsanti = PulsantiDelloStile(stile, risposta);
  if (tasto.wVirtualKeyCode == VK_RETURN) return risposta[0];
  if (tasto.wVirtualKeyCode == VK_ESCAPE) {
    const int cercata = pulsanti == 1 ? IDOK : IDCANCEL;
    return HaPulsante(risposta, pulsanti, cercata) ? cercata : 0;
  }
  const int lettere =
      politica.lettere < MASSIMO_LETTERE_RISPOSTA ? politica.lettere : MASSIMO_LETTERE_RISPOSTA;
  for (int i = 0; i < lettere; ++i) {
    const LetteraRisposta& lettera = politica.lettera[i];
    // The first letter of the key that the box has a button for answers.
    if (lettera.lettera != 0 && tasto.wVirtualKeyCode == static_cast<WORD>(lettera.lettera) &&
        HaPulsante(risposta, pulsanti, lettera.risposta))
      return lettera.risposta;
  }
  return 0;
}

int RigheRiquadro(const Impaginazione& imp) { return imp.righe + 1; }

void PosizioneRiga(const Impaginazione& imp, int riga, int& x, int& y) {
  if (riga < 0) riga = 0;
  if (riga >= imp.righe) {
    x = imp.colonna_pulsante[0];
    y = imp.riga_pulsanti;
    return;
  }
  x = imp.colonna_testo;
  y = imp.riga_testo + riga;
}

int RigaDopoTasto(const Impaginazione& imp, int riga, const INPUT_RECORD& evento) {
  if (evento.EventType != KEY_EVENT || !evento.Event.KeyEvent.bKeyDown) return riga;
  const KEY_EVENT_RECORD& tasto = evento.Event.KeyEvent;
  if (tasto.dwControlKeyState & (MASCHERA_CTRL | MASCHERA_ALT)) return riga;
  const int ultima = RigheRiquadro(imp) - 1;
  switch (tasto.wVirtualKeyCode) {
    case VK_UP:
      return riga > 0 ? riga - 1 : 0;
    case VK_DOWN:
      return riga < ultima ? riga + 1 : ultima;
    case VK_HOME:
      return 0;
    case VK_END:
      return ultima;
    default:
      return riga;
  }
}

void MessaggioDimensioni(int colonne, int righe, char* uscita, size_t dimensione,
                         const PoliticaInterfaccia& politica) {
  if (uscita == nullptr || dimensione == 0) return;
  char scelta[128];
  // The size in digits says what is needed in any language, cut to the width.
  const int cifre = std::snprintf(scelta, sizeof scelta, "%dx%d", COLONNE_SCHERMO, RIGHE_SCHERMO);
  if (cifre > colonne) scelta[colonne > 0 ? colonne : 0] = 0;
  constexpr int MASSIMO_FORME = 16;
  char forma[sizeof scelta];
  for (int i = 0; politica.forma_dimensioni && i < MASSIMO_FORME; ++i) {
    forma[0] = 0;
    if (!politica.forma_dimensioni(i, colonne, righe, forma, sizeof forma)) break;
    forma[sizeof forma - 1] = 0;
    if (static_cast<int>(ContaCaratteri(forma, std::strlen(forma))) <= colonne) {
      std::memcpy(scelta, forma, sizeof scelta);
      break;
    }
  }
  std::snprintf(uscita, dimensione, "%s", scelta);
}

}  // namespace piattaforma::terminale
