#include "platform/display/easy_request.h"

#include "platform/display/backend.h"

int EasyRequestArgs(Window* window, const EasyStruct* easy)
{
    DisplayBackend* backend = CurrentDisplayBackend();
    if (!backend || !easy)
        return 0;
    return backend->EasyRequest(window, easy->es_Title ? easy->es_Title : "",
                                easy->es_TextFormat ? easy->es_TextFormat : "",
                                easy->es_GadgetFormat ? easy->es_GadgetFormat : "");
}
