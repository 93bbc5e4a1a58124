-- The network as the program shows it: systems, their ECPs, their cells.
CREATE TABLE kiv_network (
  instance_id INTEGER PRIMARY KEY,
  kind TEXT NOT NULL CHECK (kind IN ('system', 'ecp', 'cell')),
  parent_instance_id INTEGER,
  system_id INTEGER NOT NULL,
  ecp_id INTEGER NOT NULL DEFAULT 0,
  cell_id INTEGER NOT NULL DEFAULT 0,
  name TEXT NOT NULL,
  technology TEXT NOT NULL DEFAULT '',
  UNIQUE (system_id, ecp_id, cell_id)
);

-- Antennas: the faces of a cell, with or without directional setup. Here and below, each key begins with what
-- its query asks for and ends with what it sorts by.
CREATE TABLE luc_cfg_ceqsu2 (
  Instance_Id INTEGER NOT NULL,
  system_id INTEGER NOT NULL,
  ecp INTEGER NOT NULL,
  cell INTEGER NOT NULL,
  rfpi INTEGER NOT NULL,
  dsetup TEXT NOT NULL,
  PRIMARY KEY (system_id, ecp, cell, rfpi)
)@WITHOUT_ROWID@;

-- CDMA carriers of a cell, one row for each channel.
CREATE TABLE luc_cfg_cdma_car_chans (
  cdma_carr_id INTEGER NOT NULL,
  system_id INTEGER NOT NULL,
  ecp INTEGER NOT NULL,
  cell INTEGER NOT NULL,
  keyid INTEGER NOT NULL,
  PRIMARY KEY (system_id, ecp, cell, keyid)
)@WITHOUT_ROWID@;

-- CDMA carriers of a CGSA, and the cells of a CGSA.
CREATE TABLE luc_cfg_cgsa_cdma_cars (
  carrier_no INTEGER NOT NULL,
  system_id INTEGER NOT NULL,
  ecp INTEGER NOT NULL,
  cgsano INTEGER NOT NULL,
  PRIMARY KEY (system_id, ecp, cgsano, carrier_no)
)@WITHOUT_ROWID@;

CREATE TABLE luc_cfg_cgsa_cell_list (
  system_id INTEGER NOT NULL,
  ecp INTEGER NOT NULL,
  cgsano INTEGER NOT NULL,
  cell INTEGER NOT NULL,
  PRIMARY KEY (system_id, ecp, cell, cgsano)
)@WITHOUT_ROWID@;

-- Which entity an entity belongs to, found by the numbers on its path joined with hyphens.
CREATE TABLE vzn_instance_context (
  context_id INTEGER NOT NULL,
  fullkey TEXT NOT NULL,
  ParentInstance_Id INTEGER NOT NULL,
  PRIMARY KEY (fullkey, context_id)
)@WITHOUT_ROWID@;

-- Activated features of the switch of an ECP instance.
CREATE TABLE KIV_FAF (
  InstanceId INTEGER PRIMARY KEY,
  OmpHostName TEXT,
  F121 TEXT,
  F161 TEXT,
  F276 TEXT,
  F297 TEXT,
  F368 TEXT,
  F430 TEXT,
  F465 TEXT,
  F545 TEXT,
  F559 TEXT
);

-- only postgresql
CREATE SCHEMA lucent_generic;

-- only postgresql
-- Empty for a number that no cell has, and for a text that is no number.
CREATE FUNCTION lucent_generic.find_cell_tech(instance TEXT) RETURNS TEXT
LANGUAGE sql STABLE SET search_path FROM CURRENT
AS $$
  SELECT coalesce((SELECT technology FROM kiv_network
                   WHERE instance_id = CASE WHEN instance ~ '^-?[0-9]{1,18}$' THEN instance::BIGINT END), '')
$$;
