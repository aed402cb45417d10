#pragma once

#include <string_view>

/// What the schema of every catalogue begins with: all that does not depend on the types of action.
inline constexpr std::string_view kProjectSchemaStart = R"(<?xml version="1.0" encoding="UTF-8"?>
<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
  <xs:element name="VekProject">
    <xs:complexType>
      <xs:all>
        <xs:element name="Variables" type="Variables" minOccurs="0"/>
        <xs:element name="FileSets" type="FileSets" minOccurs="0"/>
        <xs:element name="Actions" type="Actions" minOccurs="0"/>
      </xs:all>
      <xs:attribute name="Version" use="required" fixed="1"/>
      <xs:attribute name="FollowLinks" type="Truth"/>
    </xs:complexType>
    <xs:unique name="VariableName">
      <xs:selector xpath="Variables/Variable"/>
      <xs:field xpath="@Name"/>
    </xs:unique>
    <xs:unique name="FileSetName">
      <xs:selector xpath="FileSets/FileSet"/>
      <xs:field xpath="@Name"/>
    </xs:unique>
  </xs:element>
  <xs:complexType name="Variables">
    <xs:sequence>
      <xs:element name="Variable" minOccurs="0" maxOccurs="unbounded">
        <xs:complexType>
          <xs:simpleContent>
            <xs:extension base="xs:string">
              <xs:attribute name="Name" use="required">
                <xs:simpleType>
                  <xs:restriction base="xs:string">
                    <xs:pattern value="[A-Za-z0-9_.()\-]+"/>
                  </xs:restriction>
                </xs:simpleType>
              </xs:attribute>
              <xs:attribute name="Type" default="String">
                <xs:simpleType>
                  <xs:restriction base="xs:string">
                    <xs:enumeration value="String"/>
                    <xs:enumeration value="Integer"/>
                    <xs:enumeration value="Boolean"/>
                    <xs:enumeration value="Float"/>
                    <xs:enumeration value="DateTime"/>
                  </xs:restriction>
                </xs:simpleType>
              </xs:attribute>
              <xs:attribute name="Secret" type="Truth"/>
              <xs:attribute name="Required" type="Truth"/>
              <xs:attribute name="Export" type="Truth"/>
            </xs:extension>
          </xs:simpleContent>
        </xs:complexType>
      </xs:element>
    </xs:sequence>
  </xs:complexType>
  <xs:complexType name="FileSets">
    <xs:sequence>
      <xs:element name="FileSet" minOccurs="0" maxOccurs="unbounded">
        <xs:complexType>
          <xs:choice minOccurs="0" maxOccurs="unbounded">
            <xs:element name="Include" type="xs:string"/>
            <xs:element name="Exclude" type="xs:string"/>
          </xs:choice>
          <xs:attribute name="Name" type="xs:string" use="required"/>
          <xs:attribute name="BaseDirectory" type="xs:string" use="required"/>
        </xs:complexType>
      </xs:element>
    </xs:sequence>
  </xs:complexType>
  <xs:complexType name="Actions">
    <xs:sequence>
      <xs:element name="Action" type="Action" minOccurs="0" maxOccurs="unbounded"/>
    </xs:sequence>
  </xs:complexType>
  <xs:complexType name="Action">
    <xs:sequence>
      <xs:group ref="Scripts"/>
      <xs:choice minOccurs="0">
        <xs:sequence>
          <xs:element name="Properties" type="Properties"/>
          <xs:group ref="Scripts"/>
          <xs:sequence minOccurs="0">
            <xs:element name="Actions" type="Actions"/>
            <xs:group ref="Scripts"/>
          </xs:sequence>
        </xs:sequence>
        <xs:sequence>
          <xs:element name="Actions" type="Actions"/>
          <xs:group ref="Scripts"/>
          <xs:sequence minOccurs="0">
            <xs:element name="Properties" type="Properties"/>
            <xs:group ref="Scripts"/>
          </xs:sequence>
        </xs:sequence>
      </xs:choice>
    </xs:sequence>
    <xs:attribute name="Type" type="ActionType" use="required"/>
  </xs:complexType>
  <xs:group name="Scripts">
    <xs:sequence>
      <xs:element name="Script" minOccurs="0" maxOccurs="unbounded">
        <xs:complexType>
          <xs:simpleContent>
            <xs:extension base="xs:string">
              <xs:attribute name="Event" type="ScriptEvent" use="required"/>
            </xs:extension>
          </xs:simpleContent>
        </xs:complexType>
      </xs:element>
    </xs:sequence>
  </xs:group>
  <xs:complexType name="Lines">
    <xs:sequence>
      <xs:element name="Line" type="xs:string" minOccurs="0" maxOccurs="unbounded"/>
    </xs:sequence>
  </xs:complexType>
  <xs:simpleType name="Truth">
    <xs:union>
      <xs:simpleType>
        <xs:restriction base="xs:token">
          <xs:enumeration value="True"/>
          <xs:enumeration value="False"/>
        </xs:restriction>
      </xs:simpleType>
      <xs:simpleType>
        <xs:restriction base="xs:token">
          <xs:pattern value="[Tt][Rr][Uu][Ee]|[Ff][Aa][Ll][Ss][Ee]|-1|0|1"/>
        </xs:restriction>
      </xs:simpleType>
    </xs:union>
  </xs:simpleType>
  <xs:simpleType name="Moment">
    <xs:restriction base="xs:token">
      <xs:pattern value="\d{4}-\d{2}-\d{2}([T ]\d{2}:\d{2}(:\d{2})?)?"/>
    </xs:restriction>
  </xs:simpleType>
)";
