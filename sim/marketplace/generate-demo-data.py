#!/usr/bin/env python3
"""Writes sim/data/demo/marketplace.xml: the marketplace of the sandbox's demo seller.

The output is committed; run this again only to change the demo data:
    sim/marketplace/generate-demo-data.py > sim/data/demo/marketplace.xml
The same seed always gives the same file.
"""

import random
import sys
from xml.sax.saxutils import escape, quoteattr

rng = random.Random(4711)

# ---------------------------------------------------------------------------------------------
# Properties: id, caption, data type, MaxValue, required, readOnly, type, enumeration values.
# A property without type is characteristic; the ones listed under VariantProperties of a
# template are the variants.

PRICE_IDS = (["Cy_List_Price", "PromoPrice", "WholeSalePrice", "WholeSaleQuantity"] +
             [f"Group{n}{kind}" for n in range(1, 6) for kind in ("Price", "Quantity")])

PROPERTIES = [
    ("Name", "Nombre", "String", "80", "yes", "yes", None, None),
    ("Description", "Descripción", "String", "255", "no", "yes", None, None),
    ("Marca", "Marca", "String", "40", "yes", "no", None, None),
    ("Modelo", "Modelo", "String", "40", "no", "no", None, None),
    ("CodigoBarras", "Código de barras", "Biginteger", "9999999999999", "no", "no", None, None),
    ("Pulgadas", "Pulgadas", "Integer", "100", "no", "no", None, None),
    ("Resolucion", "Resolución", "Enumeration", None, "yes", "no", None,
     ["HD", "Full HD", "4K UHD", "8K"]),
    ("PotenciaW", "Potencia (W)", "Double", None, "no", "no", None, None),
    ("PesoKg", "Peso (kg)", "Float", "500", "no", "no", None, None),
    ("CapacidadLitros", "Capacidad (litros)", "Float", None, "no", "no", None, None),
    ("Material", "Material", "Enumeration", None, "no", "no", None,
     ["Madera", "Metal", "Plástico", "Vidrio", "Tela", "Acero inoxidable", "Aluminio"]),
    ("Memoria", "Memoria", "Enumeration", None, "yes", "no", None,
     ["8 GB", "16 GB", "32 GB", "64 GB"]),
    ("Autor", "Autor", "String", "80", "yes", "no", None, None),
    ("Editorial", "Editorial", "String", "60", "no", "no", None, None),
    ("ISBN", "ISBN", "String", "13", "no", "no", None, None),
    ("Paginas", "Páginas", "Integer", "5000", "no", "no", None, None),
    ("FechaLanzamiento", "Fecha de lanzamiento", "Datetime", None, "no", "no", None, None),
    ("Imagen", "Imagen", "FilePath", None, "no", "no", None, None),
    ("Garantia", "Incluye garantía", "Boolean", None, "no", "no", None, None),
    ("Color", "Color", "Enumeration", None, "yes", "no", None,
     ["Negro", "Blanco", "Rojo", "Azul", "Verde", "Gris"]),
    ("Talla", "Talla", "Enumeration", None, "yes", "no", None, ["XS", "S", "M", "L", "XL"]),
    ("TallaCalzado", "Talla de calzado", "Enumeration", None, "yes", "no", None,
     [str(n) for n in range(36, 46)]),
    ("TallaMarco", "Talla de marco", "Enumeration", None, "yes", "no", None,
     ["S - 15 pulgadas", "M - 17 pulgadas", "L - 19 pulgadas"]),
    ("Cy_List_Price", "Precio de lista", "Currency", None, "yes", "no", "NC", None),
    ("PromoPrice", "Precio promocional", "Currency", None, "no", "no", "NC", None),
    ("WholeSalePrice", "Precio mayorista", "Currency", None, "no", "no", "NC", None),
    ("WholeSaleQuantity", "Cantidad mayorista", "Integer", "9999", "no", "no", "NC", None),
] + [
    prop for n in range(1, 6) for prop in (
        (f"Group{n}Price", f"Precio grupo {n}", "Currency", None, "no", "no", "NC", None),
        (f"Group{n}Quantity", f"Cantidad grupo {n}", "Integer", "9999", "no", "no", "NC",
         None))
] + [
    ("ERPID", "Código ERP", "String", "30", "no", "no", "NC", None),
    ("PublicationCode", "Código de publicación", "String", "20", "no", "no", "NC", None),
    ("DescriptionHTML", "Descripción detallada", "String", "4000", "no", "no", "NC", None),
    ("Existencia", "Existencia", "Integer", "99999", "yes", "no", "NC", None),
    ("FechaDisponible", "Fecha disponible", "Datetime", None, "no", "no", "NC", None),
    ("EnvioGratis", "Envío gratis", "Boolean", None, "no", "no", "NC", None),
    ("CondicionProducto", "Condición", "Enumeration", None, "yes", "no", "NC",
     ["Nuevo", "Reacondicionado", "Usado"]),
    ("DiasEntrega", "Días de entrega", "Integer", "60", "no", "no", "NC", None),
    ("PesoEnvio", "Peso de envío (kg)", "Float", None, "no", "no", "NC", None),
    ("Observaciones", "Observaciones", "String", "200", "no", "no", "C", None),
    ("VariantID", "Variante", "String", "30", "no", "yes", "NC", None),
]

COMMON_NC = PRICE_IDS + ["ERPID", "PublicationCode", "DescriptionHTML", "FechaDisponible",
                         "EnvioGratis", "CondicionProducto", "DiasEntrega", "PesoEnvio",
                         "Observaciones"]

# Templates: name -> (characteristic ids, variant ids). Templates with variants keep the stock
# per variant, under VariantProperties; the others keep it with the product.
DEFINITIONS = {
    "pdTelevisor": (["Name", "Description", "Marca", "Modelo", "Pulgadas", "Resolucion",
                     "PotenciaW", "CodigoBarras", "Garantia", "Imagen", "FechaLanzamiento"], []),
    "pdAudio": (["Name", "Description", "Marca", "Modelo", "PotenciaW", "Garantia", "Imagen"],
                ["Color"]),
    "pdComputador": (["Name", "Description", "Marca", "Modelo", "Memoria", "Pulgadas", "PesoKg",
                      "CodigoBarras", "Garantia", "Imagen"], []),
    "pdElectrodomestico": (["Name", "Description", "Marca", "Modelo", "PotenciaW",
                            "CapacidadLitros", "Garantia", "Imagen"], []),
    "pdMenaje": (["Name", "Description", "Marca", "Material", "CapacidadLitros", "Imagen"], []),
    "pdMueble": (["Name", "Description", "Modelo", "Material", "PesoKg", "Imagen"], ["Color"]),
    "pdVariantProduct": (["Name", "Description", "Marca", "Material", "Imagen"],
                         ["Color", "Talla"]),
    "pdCalzado": (["Name", "Description", "Marca", "Modelo", "Imagen"],
                  ["TallaCalzado", "Color"]),
    "pdBicicleta": (["Name", "Description", "Marca", "Modelo", "PesoKg", "Garantia", "Imagen"],
                    ["TallaMarco", "Color"]),
    "pdEquipoDeportivo": (["Name", "Description", "Marca", "Modelo", "PesoKg", "Material",
                           "CapacidadLitros", "Imagen"], []),
    "pdLibro": (["Name", "Description", "Autor", "Editorial", "ISBN", "Paginas",
                 "FechaLanzamiento", "Imagen"], []),
    "pdPapeleria": (["Name", "Description", "Marca", "Material", "Imagen"], []),
}

# ---------------------------------------------------------------------------------------------
# Product makers: each gives (name, description, {field: value}) for the n-th product.

def date(year_from, year_to):
    return (f"{rng.randint(year_from, year_to)}/{rng.randint(1, 12):02d}/"
            f"{rng.randint(1, 28):02d}T00:00:00")


def barcode():
    return str(rng.randint(7_700_000_000_000, 7_799_999_999_999))


def boolean():
    return rng.choice(["0", "1"])


def television(kind):
    def make(n):
        brand = rng.choice(["Sonora", "Vistalux", "Kairo", "Nordel"])
        inches = rng.choice([32, 40, 43, 50, 55, 65, 75])
        resolution = rng.choice(["HD", "Full HD"] if inches < 43 else ["4K UHD", "8K", "4K UHD"])
        model = f"{brand[:2].upper()}-{inches}{kind[0]}{n:03d}"
        name = f"Televisor {kind} {brand} {inches}\" {resolution}"
        description = (f"Televisor {kind} de {inches} pulgadas con resolución {resolution}, "
                       f"tres entradas HDMI y control por voz.")
        return name, description, {
            "Marca": brand, "Modelo": model, "Pulgadas": str(inches), "Resolucion": resolution,
            "PotenciaW": f"{rng.randint(60, 240)}.5", "CodigoBarras": barcode(),
            "Garantia": "1", "FechaLanzamiento": date(2023, 2025)}
    return make


def audio(kind):
    def make(n):
        brand = rng.choice(["Sonora", "Ritmo", "Auralis"])
        style = rng.choice(["inalámbricos", "con cable", "deportivos", "de estudio"]
                           if kind == "Audífonos" else ["portátil", "de torre", "para exterior"])
        model = f"{brand[:3].upper()}-{n:04d}"
        name = f"{kind} {style} {brand} {model}"
        description = f"{kind} {style} con sonido envolvente y batería de larga duración."
        return name, description, {"Marca": brand, "Modelo": model,
                                   "PotenciaW": str(rng.choice([5, 10, 20, 40, 80])),
                                   "Garantia": boolean()}
    return make


def computer(kind):
    def make(n):
        brand = rng.choice(["Cóndor", "Nimbus", "Altiplano"])
        inches = rng.choice([14, 15, 17] if kind == "Portátil" else [22, 24, 27, 32, 34])
        memory = rng.choice(["8 GB", "16 GB", "32 GB", "64 GB"])
        model = f"{brand[:2].upper()}{inches}-{n:03d}"
        if kind == "Portátil":
            name = f"Portátil {brand} {model} {inches}\" {memory}"
            description = f"Computador portátil de {inches} pulgadas con {memory} de memoria."
        else:
            name = f"{kind} {brand} {inches}\" {model}"
            description = f"{kind} de {inches} pulgadas con ajuste de altura y entrada HDMI."
        return name, description, {
            "Marca": brand, "Modelo": model, "Memoria": memory, "Pulgadas": str(inches),
            "PesoKg": f"{rng.uniform(1.2, 8.5):.1f}", "CodigoBarras": barcode(),
            "Garantia": "1"}
    return make


def cookware(n):
    brand = rng.choice(["Cocinova", "Hogarex", "Fogón Criollo"])
    item = rng.choice(["Olla", "Sartén", "Cacerola", "Set de ollas", "Wok", "Olla a presión"])
    material = rng.choice(["Acero inoxidable", "Aluminio", "Metal"])
    litres = rng.choice([1.5, 2.0, 3.5, 5.0, 7.0])
    name = f"{item} {brand} {litres:.1f} L"
    if n == 3:
        name = "Set de ollas Acero & Cobre 5 piezas"
    description = f"{item} de {material.lower()} con mango térmico, apta para inducción."
    return name, description, {"Marca": brand, "Material": material,
                               "CapacidadLitros": f"{litres:.1f}"}


def appliance(n):
    brand = rng.choice(["Cocinova", "Hogarex", "Brisa"])
    item = rng.choice(["Licuadora", "Batidora", "Tostadora", "Hervidor", "Freidora de aire",
                       "Cafetera", "Sandwichera"])
    watts = rng.choice([600, 800, 1000, 1200, 1500])
    model = f"{brand[:2].upper()}-{watts}-{n:02d}"
    name = f"{item} {brand} {model}"
    description = f"{item} de {watts} W con apagado automático y piezas lavables."
    return name, description, {"Marca": brand, "Modelo": model, "PotenciaW": str(watts),
                               "CapacidadLitros": f"{rng.uniform(0.5, 5.0):.1f}",
                               "Garantia": "1"}


def furniture(kind):
    def make(n):
        material = rng.choice(["Madera", "Metal", "Vidrio"])
        style = rng.choice(["nórdica", "clásica", "industrial", "plegable", "de comedor"])
        model = f"{kind[:3].upper()}-{n:03d}"
        name = f"{kind} {style} de {material.lower()} {model}"
        description = f"{kind} {style} de {material.lower()}, fácil de armar."
        return name, description, {"Modelo": model, "Material": material,
                                   "PesoKg": f"{rng.uniform(2.5, 35.0):.1f}"}
    return make


def tshirt(n):
    brand = rng.choice(["Alpaca Viva", "Urbano", "Costa Azul"])
    style = rng.choice(["básica", "estampada", "deportiva", "cuello en V", "manga larga"])
    name = f"Camiseta {style} {brand} N.º {n}"
    description = f"Camiseta {style} de algodón peinado, disponible en varias tallas y colores."
    return name, description, {"Marca": brand, "Material": "Tela"}


def shoe(n):
    brand = rng.choice(["Pisada", "Andes Run", "Zancada"])
    style = rng.choice(["para correr", "de entrenamiento", "de montaña", "urbanas"])
    model = f"{brand[:2].upper()}-{n:03d}"
    name = f"Zapatillas {style} {brand} {model}"
    description = f"Zapatillas {style} con suela amortiguada y plantilla removible."
    return name, description, {"Marca": brand, "Modelo": model}


def bicycle(n):
    brand = rng.choice(["Ruta Andina", "Pedalia", "Cumbre"])
    kind = rng.choice(["de montaña", "de ruta", "urbana", "plegable"])
    model = f"{brand[:2].upper()}-{rng.choice([26, 27, 29])}-{n:02d}"
    name = f"Bicicleta {kind} {brand} {model}"
    description = f"Bicicleta {kind} con cuadro de aluminio y 21 velocidades."
    return name, description, {"Marca": brand, "Modelo": model,
                               "PesoKg": f"{rng.uniform(9.5, 16.0):.1f}", "Garantia": "1"}


def sports_gear(kind):
    def make(n):
        brand = rng.choice(["Cumbre", "Refugio", "Nómada"])
        item = (rng.choice(["Casco", "Casco con visera", "Casco infantil"]) if kind == "Casco"
                else rng.choice(["Carpa", "Saco de dormir", "Mochila", "Colchoneta",
                                 "Linterna frontal", "Cocinilla"]))
        model = f"{brand[:2].upper()}-{n:03d}"
        name = f"{item} {brand} {model}"
        description = f"{item} resistente y liviano para salidas al aire libre."
        return name, description, {"Marca": brand, "Modelo": model,
                                   "PesoKg": f"{rng.uniform(0.3, 4.5):.2f}",
                                   "Material": rng.choice(["Tela", "Plástico", "Aluminio"]),
                                   "CapacidadLitros": str(rng.choice([20, 35, 50, 65]))}
    return make


FIRST = ["María", "José", "Ana", "Luis", "Carmen", "Jorge", "Lucía", "Pedro", "Elena",
         "Tomás", "Rosa", "Andrés", "Inés", "Raúl", "Teresa"]
LAST = ["Quispe", "Salazar", "Montoya", "Figueroa", "Aranda", "Villalobos", "Cárdenas",
        "Ibáñez", "Peñaloza", "Ugarte", "Zúñiga", "Benavides"]
TITLE_A = ["El silencio", "La memoria", "Crónica", "El viaje", "La casa", "El jardín",
           "Historia", "La sombra", "El último verano", "Cartas"]
TITLE_B = ["del altiplano", "de los ríos", "de una ciudad lejana", "del puerto", "de la niebla",
           "sin regreso", "de mi abuela", "bajo la lluvia", "de los cóndores", "en el desierto"]


def book(n):
    author = f"{rng.choice(FIRST)} {rng.choice(LAST)}"
    title = f"{rng.choice(TITLE_A)} {rng.choice(TITLE_B)}"
    name = f"{title} ({author})"
    description = f"Novela de {author}, edición de bolsillo."
    return name, description, {
        "Autor": author,
        "Editorial": rng.choice(["Editorial Mirador", "Ediciones del Puerto", "Sur Libros"]),
        "ISBN": f"978{rng.randint(1_000_000_000, 9_999_999_999)}",
        "Paginas": str(rng.randint(96, 720)), "FechaLanzamiento": date(1995, 2025)}


def stationery(n):
    brand = rng.choice(["Trazo", "Papelera Central"])
    item = rng.choice(["Cuaderno universitario", "Set de lápices de colores", "Agenda 2026",
                       "Carpeta archivadora", "Resma de papel carta", "Set de plumones"])
    name = f"{item} {brand} N.º {n}"
    description = f"{item} de {brand}, ideal para el colegio y la oficina."
    return name, description, {"Marca": brand,
                               "Material": rng.choice(["Plástico", "Madera", "Metal"])}


# ---------------------------------------------------------------------------------------------
# The category tree: (id, name, description, definitions, [(template, maker, count)], children)

TREE = [
    ("ZC-100", "Electrónica", "Televisores, audio y computación.",
     "pdTelevisor pdAudio pdComputador",
     [("pdAudio", audio("Parlante"), 3)], [
         ("ZC-110", "Televisores", "Pantallas para el hogar.", "pdTelevisor", [], [
             ("ZC-111", "Televisores LED", "Televisores con retroiluminación LED.", None,
              [("pdTelevisor", television("LED"), 24)], []),
             ("ZC-112", "Televisores OLED", "Negros profundos y colores intensos.", None,
              [("pdTelevisor", television("OLED"), 12)], []),
         ]),
         ("ZC-120", "Audio", "Sonido para todos los gustos.", "pdAudio", [], [
             ("ZC-121", "Audífonos", "Audífonos y manos libres.", None,
              [("pdAudio", audio("Audífonos"), 30)], []),
             ("ZC-122", "Parlantes", "Parlantes portátiles y de torre.", None,
              [("pdAudio", audio("Parlante"), 18)], []),
         ]),
         ("ZC-130", "Computación", "Equipos y pantallas.", "pdComputador", [], [
             ("ZC-131", "Portátiles", "Computadores portátiles.", None,
              [("pdComputador", computer("Portátil"), 20)], []),
             ("ZC-132", "Monitores", "Monitores para oficina y juegos.", None,
              [("pdComputador", computer("Monitor"), 15)], [
                  ("ZC-1321", "Monitores curvos", "Pantallas curvas panorámicas.", None,
                   [("pdComputador", computer("Monitor curvo"), 6)], []),
              ]),
         ]),
     ]),
    ("ZC-200", "Hogar", "Cocina, muebles y decoración.", "pdElectrodomestico pdMenaje pdMueble",
     [], [
         ("ZC-210", "Cocina", "Todo para cocinar.", "pdElectrodomestico pdMenaje", [], [
             ("ZC-211", "Ollas y sartenes", "Menaje de cocina.", None,
              [("pdMenaje", cookware, 16)], []),
             ("ZC-212", "Pequeños electrodomésticos", "Ayudantes de cocina.", None,
              [("pdElectrodomestico", appliance, 22)], []),
         ]),
         ("ZC-220", "Muebles", "Muebles para cada espacio.", "pdMueble", [], [
             ("ZC-221", "Sillas", "Sillas de comedor, oficina y terraza.", None,
              [("pdMueble", furniture("Silla"), 14)], []),
             ("ZC-222", "Mesas", "Mesas de centro y de comedor.", None,
              [("pdMueble", furniture("Mesa"), 10)], []),
         ]),
     ]),
    ("ZC-300", "Ropa y calzado", "Vestuario para toda la familia.", "pdVariantProduct pdCalzado",
     [], [
         ("ZC-310", "Camisetas", "Camisetas de algodón en todas las tallas.", "pdVariantProduct",
          [("pdVariantProduct", tshirt, 100)], []),
         ("ZC-320", "Calzado deportivo", "Zapatillas para correr y caminar.", "pdCalzado",
          [("pdCalzado", shoe, 25)], []),
     ]),
    ("ZC-400", "Deportes", "Ciclismo y camping.", "pdBicicleta pdEquipoDeportivo", [], [
        ("ZC-410", "Ciclismo", "Bicicletas y accesorios.", None, [], [
            ("ZC-411", "Bicicletas", "Bicicletas de montaña, ruta y paseo.", "pdBicicleta",
             [("pdBicicleta", bicycle, 12)], []),
            ("ZC-412", "Cascos", "Cascos certificados.", "pdEquipoDeportivo",
             [("pdEquipoDeportivo", sports_gear("Casco"), 8)], []),
        ]),
        ("ZC-420", "Camping", "Carpas, sacos y mochilas.", "pdEquipoDeportivo",
         [("pdEquipoDeportivo", sports_gear("Camping"), 15)], []),
    ]),
    ("ZC-500", "Librería", "Libros y artículos de oficina.", "pdLibro pdPapeleria", [], [
        ("ZC-510", "Libros", "Narrativa de autores latinoamericanos.", "pdLibro",
         [("pdLibro", book, 130)], []),
        ("ZC-520", "Papelería", "Cuadernos, lápices y archivo.", "pdPapeleria",
         [("pdPapeleria", stationery, 20)], []),
    ]),
    ("ZC-600", "Mascotas", "", "pdEquipoDeportivo", [], []),
]

# ---------------------------------------------------------------------------------------------
# Sellers and their stores. Publications already in a store were made before the sandbox's
# seller database existed; their numbers lie far above what that database will hand out.

SELLERS = [
    {"id": "V1042", "clientNumber": "4711", "license": "NUB-LIC-2026-0042",
     "clientKey2": "QK-7F3A9C", "stores": [
         {"id": "100", "plan": "300", "maxProducts": "150", "status": "A",
          "name": "Andina Hogar y Cocina",
          "description": "Todo para la casa: cocina, muebles y decoración.",
          "users": [("carmen", "andina2026"), ("admin", "feria123")],
          "publications": [("90001", 150, "34990.00"), ("90002", 160, "18990.00"),
                           ("90003", 170, "52990.00")]},
         {"id": "200", "plan": "300", "maxProducts": "40", "status": "A",
          "name": "Andina Deportes, Camping y Aventura al Aire Libre",
          "description": "Bicicletas, cascos y equipo de camping para toda la familia.",
          "users": [("jorge", "montana7")],
          "publications": [("90004", 326, "289990.00")]},
         {"id": "300", "plan": "310", "maxProducts": "500", "status": "A",
          "name": "Andina Tecnología", "description": "",
          "users": [("lucia", "tecno2026")], "publications": []},
     ]},
    {"id": "V2001", "clientNumber": "5120", "license": "NUB-LIC-2026-0077",
     "clientKey2": "QK-1B2C3D", "stores": [
         {"id": "900", "plan": "300", "maxProducts": "80", "status": "A",
          "name": "Librería del Puerto", "description": "Libros nuevos y usados.",
          "users": [("puerto", "libros1")], "publications": []},
     ]},
]

LIMITS = {"300": {"9": 5, "16": 50}, "310": {"9": 10, "16": 50}}


def attr(name, value):
    return f" {name}={quoteattr(value)}"


def field(fid, value, indent):
    return f"{indent}<Field fieldID={quoteattr(fid)}>{escape(value)}</Field>\n"


def write_properties(out):
    out.write("  <PropertiesDefinition>\n")
    for pid, caption, dtype, maxv, required, readonly, ptype, values in PROPERTIES:
        text = f"    <Property{attr('name', caption)}{attr('id', pid)}{attr('dataType', dtype)}"
        if maxv is not None:
            text += attr("MaxValue", maxv)
        text += attr("required", required) + attr("readOnly", readonly)
        if ptype is not None:
            text += attr("type", ptype)
        if values:
            out.write(text + ">\n")
            for value in values:
                out.write(f"      <PropertyValues{attr('displayName', value)}/>\n")
            out.write("    </Property>\n")
        else:
            out.write(text + "/>\n")
    out.write("  </PropertiesDefinition>\n")


def write_definitions(out):
    out.write("  <Definitions>\n")
    for name, (characteristic, variants) in DEFINITIONS.items():
        out.write(f"    <Definition{attr('name', name)}{attr('DefinitionType', 'Producto')}>\n")
        own = characteristic + COMMON_NC + ([] if variants else ["Existencia"])
        out.write("      <Properties>\n")
        for pid in own:
            out.write(f"        <Property{attr('id', pid)}/>\n")
        out.write("      </Properties>\n")
        if variants:
            out.write("      <VariantProperties>\n")
            for pid in variants + ["Existencia"]:
                out.write(f"        <Property{attr('id', pid)}/>\n")
            out.write("      </VariantProperties>\n")
        out.write("    </Definition>\n")
    out.write("  </Definitions>\n")


counter = [0]


def write_category(out, node, depth):
    cid, name, description, definitions, products, children = node
    pad = "  " * depth
    text = f"{pad}<Category{attr('id', cid)}{attr('name', name)}"
    if definitions:
        text += attr("definitions", definitions)
    out.write(text + ">\n")
    out.write(f"{pad}  <Description>{escape(description)}</Description>\n")
    for template, maker, count in products:
        for n in range(1, count + 1):
            counter[0] += 1
            pid = f"ZP-{counter[0]:05d}"
            pname, pdesc, values = maker(n)
            out.write(f"{pad}  <Product{attr('id', pid)}{attr('definition', template)}>\n")
            out.write(field("Name", pname, pad + "    "))
            out.write(field("Description", pdesc, pad + "    "))
            for fid, value in values.items():
                out.write(field(fid, value, pad + "    "))
            out.write(field("Imagen", f"/imagenes/{pid}.gif", pad + "    "))
            out.write(f"{pad}  </Product>\n")
    for child in children:
        write_category(out, child, depth + 1)
    out.write(f"{pad}</Category>\n")


def write_sellers(out):
    out.write("  <Sellers>\n")
    for seller in SELLERS:
        out.write("    <Seller" + "".join(attr(k, seller[k]) for k in
                                          ("id", "clientNumber", "license", "clientKey2")) + ">\n")
        for store in seller["stores"]:
            out.write("      <Store" + "".join(attr(k, store[k]) for k in
                                               ("id", "plan", "maxProducts", "status")) + ">\n")
            out.write(f"        <Name>{escape(store['name'])}</Name>\n")
            if store["description"]:
                out.write(f"        <Description>{escape(store['description'])}</Description>\n")
            else:
                out.write("        <Description/>\n")
            for user, password in store["users"]:
                out.write(f"        <User{attr('name', user)}{attr('password', password)}/>\n")
            for number, product, price in store["publications"]:
                out.write(f"        <Publication{attr('id', number)}"
                          f"{attr('product', f'ZP-{product:05d}')}>\n")
                out.write(field("Cy_List_Price", price, "          "))
                out.write(field("Existencia", "12", "          "))
                out.write(field("CondicionProducto", "Nuevo", "          "))
                out.write("        </Publication>\n")
            out.write("      </Store>\n")
        out.write("    </Seller>\n")
    out.write("  </Sellers>\n")


def write_limits(out):
    out.write("  <OperationLimits>\n")
    for product, operations in LIMITS.items():
        out.write(f"    <Product{attr('ProductID', product)}>")
        for operation, maximum in operations.items():
            out.write(f"<Operation{attr('OperationID', operation)}>"
                      f"<MaxOperations>{maximum}</MaxOperations></Operation>")
        out.write("</Product>\n")
    out.write("  </OperationLimits>\n")


FAULTS_HELP = """  <!-- Faults to inject, one element each (none in the demo):
       <Fault operation="GetCategoryContent|GetProductInformation|...|8|9|13|14|16|
                         IniciarSesion|CerrarSesion"
              call="N"  (only the N-th call of that operation; every call without it)
              category=".." product=".." store=".." tax=".." seller=".."  (filters)
              publication=".." word="Publicar|Actualizar|Despublicar"  (filters, operation 9)
              code="-8010" description=".."  (answer this code; -2000 to -3999 are the
                                                connector's own codes)
              delayMs="1500"
              effect="loseSession|cut|malformed|overlong|wrongOperation|noOperations|
                      omit|emptyDescription" size="70000"/>
       On operation 9 a product, publication or word filter picks operations of the batch:
       they get the code, or are left out of the answer unapplied (omit), or are answered with
       an empty DESCRIPTION; noOperations answers the whole batch without its Operations. On 16
       a tax filter gives that tax the code. -->
"""


def main():
    out = sys.stdout
    out.write('<?xml version="1.0" encoding="UTF-8"?>\n')
    out.write("<!-- The marketplace of the sandbox. Written by "
              "sim/marketplace/generate-demo-data.py. -->\n")
    out.write('<Marketplace name="Feria Nubalia">\n')
    write_sellers(out)
    write_limits(out)
    write_properties(out)
    write_definitions(out)
    out.write('  <Catalog name="Feria Nubalia">\n')
    out.write("    <Description>Todas las categorías de la feria.</Description>\n")
    for node in TREE:
        write_category(out, node, 2)
    out.write("  </Catalog>\n")
    out.write(FAULTS_HELP)
    out.write("  <Faults/>\n")
    out.write("</Marketplace>\n")


if __name__ == "__main__":
    main()
