#pragma once

// Two small services with the same operation (a text, a short and an int in; an XML document
// out as a string), one in rpc style, the other in the wrapped document/literal form, each with
// its own choice of prefixes. "@ADDRESS@" stands for the endpoint's address.

// The binding says document and the operation overrides it: the operation's word counts.
inline constexpr const char *kRpcLiteralWsdl = R"(<?xml version="1.0" encoding="UTF-8"?>
<definitions targetNamespace="urn:catalogo" xmlns="http://schemas.xmlsoap.org/wsdl/"
    xmlns:soap="http://schemas.xmlsoap.org/wsdl/soap/" xmlns:tns="urn:catalogo"
    xmlns:xsd="http://www.w3.org/2001/XMLSchema">
  <message name="ContentRequest"><part name="categoryId" type="xsd:string"/>
    <part name="page" type="xsd:short"/><part name="pageSize" type="xsd:int"/></message>
  <message name="ContentResponse"><part name="return" type="xsd:string"/></message>
  <portType name="CatalogInfo"><operation name="GetCategoryContent">
    <input message="tns:ContentRequest"/><output message="tns:ContentResponse"/>
  </operation></portType>
  <binding name="CatalogInfoBinding" type="tns:CatalogInfo">
    <soap:binding style="document" transport="http://schemas.xmlsoap.org/soap/http"/>
    <operation name="GetCategoryContent">
      <soap:operation soapAction="urn:catalogo#GetCategoryContent" style="rpc"/>
      <input><soap:body use="literal" namespace="urn:catalogo"/></input>
      <output><soap:body use="literal" namespace="urn:catalogo"/></output>
    </operation>
  </binding>
  <service name="catalogo"><port name="CatalogInfoSoapPort" binding="tns:CatalogInfoBinding">
    <soap:address location="@ADDRESS@"/></port></service>
</definitions>)";

// The request's element declares its sequence inline, the reply's through a named type.
inline constexpr const char *kDocumentLiteralWsdl = R"(<?xml version="1.0" encoding="utf-8"?>
<wsdl:definitions targetNamespace="http://feria.example/servicios"
    xmlns:wsdl="http://schemas.xmlsoap.org/wsdl/"
    xmlns:soap="http://schemas.xmlsoap.org/wsdl/soap/"
    xmlns:s="http://www.w3.org/2001/XMLSchema" xmlns:tns="http://feria.example/servicios">
  <wsdl:types>
    <s:schema elementFormDefault="qualified" targetNamespace="http://feria.example/servicios">
      <s:element name="GetCategoryContent"><s:complexType><s:sequence>
        <s:element minOccurs="0" name="categoryId" type="s:string"/>
        <s:element name="page" type="s:short"/><s:element name="pageSize" type="s:int"/>
      </s:sequence></s:complexType></s:element>
      <s:element name="GetCategoryContentResponse" type="tns:ContentResult"/>
      <s:complexType name="ContentResult"><s:sequence>
        <s:element minOccurs="0" name="GetCategoryContentResult" type="s:string"/>
      </s:sequence></s:complexType>
    </s:schema>
  </wsdl:types>
  <wsdl:message name="In"><wsdl:part name="parameters" element="tns:GetCategoryContent"/>
  </wsdl:message>
  <wsdl:message name="Out">
    <wsdl:part name="parameters" element="tns:GetCategoryContentResponse"/></wsdl:message>
  <wsdl:portType name="CatalogInfoSoap"><wsdl:operation name="GetCategoryContent">
    <wsdl:input message="tns:In"/><wsdl:output message="tns:Out"/>
  </wsdl:operation></wsdl:portType>
  <wsdl:binding name="CatalogInfoSoap" type="tns:CatalogInfoSoap">
    <soap:binding transport="http://schemas.xmlsoap.org/soap/http"/>
    <wsdl:operation name="GetCategoryContent">
      <soap:operation soapAction="http://feria.example/servicios/GetCategoryContent"/>
      <wsdl:input><soap:body use="literal"/></wsdl:input>
      <wsdl:output><soap:body use="literal"/></wsdl:output>
    </wsdl:operation>
  </wsdl:binding>
  <wsdl:service name="servicios">
    <wsdl:port name="CatalogInfoSoapPort" binding="tns:CatalogInfoSoap">
      <soap:address location="@ADDRESS@"/></wsdl:port></wsdl:service>
</wsdl:definitions>)";
