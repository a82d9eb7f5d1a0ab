// The game's status and the arbiter's decisions: adjudicating a result,
// revoking it, whether a side can still mate, the flag-fall questions,
// resignation and draw by agreement.
#pragma once

extern char Result[8];              // "*" while open, "1-0", "0-1", "1/2-1/2"
extern char Termination[64];        // English reason for the game file, "?" while open
extern char CommentoRisultato[64];  // Italian comment, empty while open

extern const char* const StringaSconfitta[2];  // result when White, Black loses

// The questions of the resignation and agreement keys, shared with the
// command table that lists the keys.
extern const char* const TestoAbbandona[2];  // White resigns (f8), Black resigns (f4)
extern const char* const TestoPattaDaccordo;

// What the game asks the screen to redraw; the console installs it.
struct SchermoPartita {
  void (*mossa_corrente)();  // the current-move line
};
extern SchermoPartita SchermoDellaPartita;

inline bool PartitaAggiudicata() { return Result[0] != '*'; }

void Aggiudica(const char* termination, const char* commento, const char* result);
void RevocaAggiudicazione();
void avisa_aggiudicazione();

int dom_AggiudicataModificaCMQ();
int dom_AggiudicataInMotoCMQ();
int dom_AggiudicaPerTempo(int colore);
int dom_AggiudicaPattaPerTempo(int colore);

bool PuoVincereIl_bianco();
bool PuoVincereIl_nero();

void PattaDaccordo();
void Abbandona(int colore);

// What follows the fall of `colore`'s flag: the tones and the question the
// material calls for, and the adjudication if the arbiter agrees.
void CadutaBandierina(int colore);
