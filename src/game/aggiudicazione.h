// The game's status and the arbiter's decisions: adjudicating a result,
// revoking it, whether a side can still mate, what a fallen flag leaves to
// decide, resignation and draw by agreement. Nothing here asks or tells the
// user: the console puts the questions and shows the outcome.
#pragma once

#include <cstdint>

extern char Result[8];              // "*" while open, "1-0", "0-1", "1/2-1/2"
extern char Termination[64];        // English reason for the game file, "?" while open
extern char CommentoRisultato[64];  // Italian comment, empty while open

extern const char* const StringaSconfitta[2];  // result when White, Black loses

inline bool PartitaAggiudicata() { return Result[0] != '*'; }

// The status as one value, for the journal and the tests.
struct StatoAggiudicazione {
  char result[8];
  char termination[64];
  char commento[64];
  bool operator==(const StatoAggiudicazione&) const = default;
};
StatoAggiudicazione FotografiaAggiudicazione();
void RipristinaAggiudicazione(const StatoAggiudicazione& stato);

// Records a result and stops the clock if it runs.
void Aggiudica(const char* termination, const char* commento, const char* result);
void RevocaAggiudicazione();

bool PuoVincereIl_bianco();
bool PuoVincereIl_nero();

// What the fall of `colore`'s flag leaves the arbiter to decide: the loss
// when the opponent can still mate, a draw when it cannot, a draw when both
// times are used up.
enum class DecisioneCaduta : uint8_t { Sconfitta, Patta, EntrambeLeBandierine };
DecisioneCaduta ValutaCaduta(int colore);
// The adjudication the arbiter agreed to.
void AggiudicaCaduta(int colore, DecisioneCaduta decisione);

// Resignation of `colore` (0 White, 1 Black) and draw by agreement, once the
// arbiter has agreed.
void AggiudicaAbbandono(int colore);
void AggiudicaPattaDaccordo();
