// How the two doors write the journal. Callers test watched(kWatchJournal) first.
#pragma once

#include "chipmodel/model.h"
#include "chipmodel/watch.h"

namespace ldsdk::model {

void journal_put(const Record &record);

}  // namespace ldsdk::model
