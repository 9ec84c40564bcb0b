-- The sample schema: a small company, and what it sold.

USE scott
/

CREATE TABLE dept (
    DEPTNO  NUMBER(2)     NOT NULL,
    DNAME   VARCHAR2(14),
    LOC     VARCHAR2(13),
    CONSTRAINT pk_dept PRIMARY KEY (deptno)
)
/
INSERT INTO dept (deptno, dname, loc) VALUES
    (10, 'FINANCE',    'LISBON'),
    (20, 'LABORATORY', 'UTRECHT'),
    (30, 'TRADE',      'GDANSK'),
    (40, 'SERVICE',    'TURIN')
/

CREATE TABLE emp (
    EMPNO     NUMBER(4)     NOT NULL,
    ENAME     VARCHAR2(10),
    JOB       VARCHAR2(9),
    MGR       NUMBER(4),
    HIREDATE  DATE,
    SAL       NUMBER(7,2),
    COMM      NUMBER(7,2),
    DEPTNO    NUMBER(2),
    CONSTRAINT pk_emp PRIMARY KEY (empno),
    CONSTRAINT fk_deptno FOREIGN KEY (deptno) REFERENCES dept (deptno)
)
/
INSERT INTO emp (empno, ename, job, mgr, hiredate, sal, comm, deptno) VALUES
    (7101, 'KING',     'PRESIDENT', NULL, DATE '2009-03-02', 5200.00, NULL,    10),
    (7112, 'OKAFOR',   'MANAGER',   7101, DATE '2009-06-15', 3050.00, NULL,    20),
    (7123, 'LINDQVIST','MANAGER',   7101, DATE '2010-01-11', 2900.50, NULL,    30),
    (7134, 'MOREAU',   'MANAGER',   7101, DATE '2010-09-20', 2750.00, NULL,    10),
    (7145, 'TANAKA',   'ANALYST',   7112, DATE '2011-02-28', 3100.00, NULL,    20),
    (7156, 'VIDAL',    'ANALYST',   7112, DATE '2012-10-01', 3000.00, NULL,    20),
    (7167, 'HARGREAVE','CLERK',     7145, DATE '2013-04-08',  980.00, NULL,    20),
    (7178, 'NOWAK',    'CLERK',     7156, DATE '2014-12-17', 1120.75, NULL,    20),
    (7189, 'BIANCHI',  'SALESMAN',  7123, DATE '2012-05-21', 1600.00,  300.00, 30),
    (7201, 'ODUYA',    'SALESMAN',  7123, DATE '2013-07-03', 1275.25,  500.00, 30),
    (7212, 'FERREIRA', 'SALESMAN',  7123, DATE '2015-11-30', 1250.00, 1400.00, 30),
    (7223, 'KOSTOVA',  'SALESMAN',  7123, DATE '2016-08-22', 1500.00,    0.00, 30),
    (7234, 'JENSEN',   'CLERK',     7123, DATE '2018-01-05',  950.00, NULL,    30),
    (7245, 'ADEYEMI',  'CLERK',     7134, DATE '2019-03-25', 1300.00, NULL,    10)
/

CREATE TABLE salgrade (
    GRADE  NUMBER(2) NOT NULL PRIMARY KEY,
    LOSAL  NUMBER(7,2),
    HISAL  NUMBER(7,2)
)
/
INSERT INTO salgrade (grade, losal, hisal) VALUES
    (1, 0.00, 1199.99), (2, 1200.00, 1499.99), (3, 1500.00, 2499.99),
    (4, 2500.00, 3499.99), (5, 3500.00, 9999.99)
/

CREATE TABLE sales (
    SALE_ID     NUMBER(10)   NOT NULL,
    SALE_DATE   DATE         NOT NULL,
    CUSTOMER    VARCHAR2(40) NOT NULL,
    PRODUCT     VARCHAR2(40) NOT NULL,
    QUANTITY    NUMBER(5)    NOT NULL,
    UNIT_PRICE  NUMBER(9,2)  NOT NULL,
    DISCOUNT    NUMBER(3,2),
    NOTE        VARCHAR2(80),
    CONSTRAINT pk_sales PRIMARY KEY (sale_id),
    KEY ix_sales_date (sale_date)
)
/
-- Checksums of the number stand for chance, so that the rows are the same everywhere.
INSERT INTO sales (sale_id, sale_date, customer, product, quantity, unit_price, discount, note)
SELECT n,
       TIMESTAMP '2019-01-02 08:00:00'
           + INTERVAL (n - 1) * 1890 + MOD(CRC32(CONCAT('time', n)), 1800) SECOND,
       CONCAT(ELT(1 + MOD(CRC32(CONCAT('first', n)), 16),
                  'Alder', 'Brightwater', 'Calder', 'Dunmore', 'Eastgate', 'Fenwick', 'Granary',
                  'Harbour', 'Ironbridge', 'Juniper', 'Kestrel', 'Lakeside', 'Millrace',
                  'Northfield', 'Oakhurst', 'Põhja'),
              ' ',
              ELT(1 + MOD(CRC32(CONCAT('second', n)), 10),
                  '& Sons', 'Bakery', 'Books', 'Cycles', 'Gardens', 'Hotel', 'Joinery',
                  'Optics', 'Tea House', 'Workshop')),
       CONCAT(ELT(1 + MOD(product, 6), 'Oak', 'Steel', 'Linen', 'Glass', 'Cork', 'Slate'),
              ' ',
              ELT(1 + MOD(product DIV 6, 8),
                  'shelf', 'lamp', 'desk', 'tray', 'clock', 'stool', 'frame', 'screen')),
       1 + MOD(CRC32(CONCAT('count', n)), 12) * MOD(n, 5),
       ROUND(4.95 + product * 3.35 + MOD(CRC32(CONCAT('price', n)), 2000) / 100, 2),
       IF(MOD(CRC32(CONCAT('off', n)), 3) = 0, MOD(CRC32(CONCAT('rate', n)), 31) / 100, NULL),
       CASE MOD(CRC32(CONCAT('note', n)), 9)
           WHEN 0 THEN 'Deliver before noon'
           WHEN 1 THEN CONCAT('Gift wrap; card says "to ', CHAR(65 + MOD(n, 26)), '."')
           WHEN 2 THEN CONCAT('Customer''s order no. ', MOD(CRC32(n), 100000))
           WHEN 3 THEN 'Returned once, sent again'
       END
  FROM (SELECT seq AS n, MOD(CRC32(CONCAT('product', seq)), 48) AS product
          FROM seq_1_to_100000) AS numbers
/
ANALYZE TABLE dept, emp, salgrade, sales
/
