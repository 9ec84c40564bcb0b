-- Where explained plans are kept: one table in each schema.

CREATE TABLE IF NOT EXISTS scott.plan_table (
    STATEMENT_ID       VARCHAR2(30),
    PLAN_ID            NUMBER(38),
    TIMESTAMP          DATE,
    REMARKS            VARCHAR2(4000),
    OPERATION          VARCHAR2(30),
    OPTIONS            VARCHAR2(255),
    OBJECT_NODE        VARCHAR2(128),
    OBJECT_OWNER       VARCHAR2(64),
    OBJECT_NAME        VARCHAR2(64),
    OBJECT_ALIAS       VARCHAR2(129),
    OBJECT_INSTANCE    NUMBER(38),
    OBJECT_TYPE        VARCHAR2(30),
    OPTIMIZER          VARCHAR2(255),
    SEARCH_COLUMNS     NUMBER(38),
    ID                 NUMBER(38),
    PARENT_ID          NUMBER(38),
    DEPTH              NUMBER(38),
    POSITION           NUMBER(38),
    COST               NUMBER(38),
    CARDINALITY        NUMBER(38),
    BYTES              NUMBER(38),
    OTHER_TAG          VARCHAR2(255),
    PARTITION_START    VARCHAR2(255),
    PARTITION_STOP     VARCHAR2(255),
    PARTITION_ID       NUMBER(38),
    OTHER              CLOB,
    DISTRIBUTION       VARCHAR2(30),
    CPU_COST           NUMBER(38),
    IO_COST            NUMBER(38),
    TEMP_SPACE         NUMBER(38),
    ACCESS_PREDICATES  VARCHAR2(4000),
    FILTER_PREDICATES  VARCHAR2(4000),
    KEY plan_table_statement (statement_id)
)
/
CREATE TABLE IF NOT EXISTS "system".plan_table LIKE scott.plan_table
/
