#include "store/null_store.h"

namespace tarn {

const StoreRef& NullStore::instance() {
    static const StoreRef store = std::make_shared<NullStore>();
    return store;
}

} // namespace tarn
