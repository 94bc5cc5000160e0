#pragma once

#include <QString>

#include <vector>

#include "TavoCore.h"

namespace TavoSim {

/*
 * The kinds of NVRAM record the simulated software load has, and how each is
 * laid out: in its raw form (the bytes the target stores, fields packed in
 * list order, little-endian) and, for kinds with a compose and decompose
 * pair, where each field lies in the decoded structure of TavoCore.h.
 *
 * The raw order differs from the decoded one on purpose, so that a caller
 * who copies bytes instead of composing gets visibly wrong data.
 *
 * Some kinds are not records of the database but stores that layer 1 keeps
 * in the NVRAM behind its data commands (storeOf): one record per band
 * group, in the commands' own byte layout. The database does not know them
 * and the NVRAM transport does not reach them.
 */
namespace NvramLayout {

enum class Type { U8, U16, S16, U32, S32, F32 };

int sizeOf(Type type);

struct Field
{
    const char *name;  /* null: reserved bytes, not reachable by name */
    Type type;
    int count;         /* elements */
    int decodedOffset; /* in the decoded structure; -1: not part of it */
    bool optional;     /* only in some records of the kind; always the last field */

    int size() const { return sizeOf(type) * count; }
};

struct Kind
{
    const char *name; /* "TxDac", ...: the key of the built-in defaults */
    std::vector<const char *> lids;
    std::vector<Field> fields;
    int defaultCount; /* records per LID */
    int decodedSize;  /* 0: the kind has no compose and decompose pair */
    /* For a layer-1 store, the kind of NVRAM record whose data it holds,
     * band group for band group (its LIDs in the same order); it starts from
     * that record's defaults. A store of data no record holds names its own
     * kind. Null for a record of the database. */
    const char *storeOf = nullptr;

    /* Raw size with and without the optional field. */
    int fullSize() const;
    int minimumSize() const;
    /* The field called `name` (no index) and its raw offset, or null. */
    const Field *field(const QString &name, int *offset) const;
};

const std::vector<Kind> &kinds();
/* The kind of `lid`, or null. */
const Kind *kindOfLid(const QString &lid);
const Kind &kind(const char *name);
/* Whether `lid` names a layer-1 store rather than a record of the database. */
bool isStore(const QString &lid);

/* One element between its raw form (little-endian) and host order. */
void elementToRaw(Type type, const void *host, uchar *raw);
void elementFromRaw(Type type, const uchar *raw, void *host);

/* The fields of the decoded record that lie wholly within rawSize bytes move
 * from one form to the other; anything else stays as it was. A raw record
 * smaller than the kind's minimum answers TAVO_ERR_BUFFER_TOO_SMALL. */
TAVO_RESULT compose(const Kind &kind, const void *decoded, uchar *raw, uint32_t rawSize);
TAVO_RESULT decompose(const Kind &kind, void *decoded, const uchar *raw, uint32_t rawSize);

} // namespace NvramLayout

} // namespace TavoSim
