// What several of these files ask LibreDWG.

export function* objectsOf(library, data) {
  const count = library.dwg_get_num_objects(data);
  for (let i = 0; i < count; i++)
    yield library.dwg_get_object(data, i);
}

export function isEntity(library, object) {
  return library.dwg_object_get_supertype(object) === library.Dwg_Object_Supertype.SUPERTYPE_ENTITY.value;
}

// Entities and other objects keep their values in different places: asked for at the wrong one, there is none.
export function fieldOf(library, object, name) {
  const place = isEntity(library, object) ? library.dwg_object_to_entity_tio(object) : library.dwg_object_to_object_tio(object);
  return library.dwg_dynapi_entity_value(place, name);
}

export function handleOf(library, object) {
  return library.dwg_object_get_handle_object(object).value.toString(16).toUpperCase();
}

// From R13 on every object has a handle.
export function hasHandles(library, data) {
  return library.dwg_get_version_type(data) >= library.Dwg_Version_Type.R_13b1.value;
}
