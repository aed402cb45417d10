#include "coreapi/Vekerrors.h"

EVekError::~EVekError() = default;
EVekExpressionError::~EVekExpressionError() = default;
