// A file against a schema: `steprt check --schema`.
#ifndef STEPRT_EXCHANGE_SCHEMA_SCHEMA_CHECK_H
#define STEPRT_EXCHANGE_SCHEMA_SCHEMA_CHECK_H

#include <string>

#include "exchange/survey.h"
#include "express/schema.h"

namespace exchange {

// The schema of the model that FILE_SCHEMA names; if it names none of them, the first one of the model.
const express::Schema& ChooseSchema(const express::Model& model, const Header& header, bool& named);

// As TakeSurvey, and checks each record against the schema that the header names. The model has no error and at least
// one schema. Reports go to `reports`, sorted. `schema`, if it is not null, becomes the name of the schema.
Survey CheckAgainst(const express::Model& model, const Input& input, const SurveyOptions& options, Reports& reports,
                    std::string* schema = nullptr);

}  // namespace exchange

#endif
