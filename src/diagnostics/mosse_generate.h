// Listing of the generated moves, for looking at the generator's output.
#pragma once

// Writes "dibag.txt": one line per word from BufferMosseGenerate up to
// FineMosseGenerate, "<type name> <origin> <destination>". Nothing is written
// when the file cannot be created.
void StampaMosseGenerate();
